#pragma once

#include <QSize>
#include <string>

namespace oakfen {

class TourStage;

/// About the smallest that the window can be made on a usual screen.
inline constexpr QSize smallSize(980, 650);

/// Writes pictures into a folder.
class Album {
public:
    explicit Album(std::string folder) : folder_(std::move(folder)) {}

    /// A picture of the stage as it looks now, by that name and whether it is light or dark.
    void add(TourStage& stage, const std::string& name) const;

private:
    std::string folder_;
};

} // namespace oakfen
