#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace oakfen {

/// A place in a chart, from its upper left corner, in device-independent pixels.
struct ChartSpot {
    double x = 0;
    double y = 0;

    friend bool operator==(const ChartSpot&, const ChartSpot&) = default;
};

struct ChartRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] double right() const { return x + width; }
    [[nodiscard]] double bottom() const { return y + height; }
    [[nodiscard]] bool contains(const ChartSpot& spot) const {
        return spot.x >= x && spot.x <= right() && spot.y >= y && spot.y <= bottom();
    }
    /// Whether they have more than an edge in common.
    [[nodiscard]] bool overlaps(const ChartRect& other) const {
        return x < other.right() && other.x < right() && y < other.bottom() && other.y < bottom();
    }
    [[nodiscard]] bool holds(const ChartRect& other) const {
        return other.x >= x && other.right() <= right() && other.y >= y &&
               other.bottom() <= bottom();
    }

    friend bool operator==(const ChartRect&, const ChartRect&) = default;
};

/// A text and where it stands.
struct PlacedText {
    std::string text;
    ChartRect rect;

    friend bool operator==(const PlacedText&, const PlacedText&) = default;
};

/// The room for a chart, and how large its texts are.
struct ChartRoom {
    double width = 0;
    double height = 0;
    double textHeight = 0;
    std::function<double(const std::string&)> textWidth;
};

/// Whether a line through the spots runs through the rectangle.
[[nodiscard]] bool crosses(const std::vector<ChartSpot>& line, const ChartRect& rect);

/// Every how many-th label stands below the places, so that none touches the next: with as little
/// left out as possible, but rather so that the last place has one too.
[[nodiscard]] std::size_t labelStride(const std::vector<std::string>& labels,
                                      const std::vector<double>& centers, const ChartRoom& room,
                                      const ChartRect& line);

/// Those labels centred below their places, but kept within the width of `line`.
[[nodiscard]] std::vector<PlacedText> placeLabels(const std::vector<std::string>& labels,
                                                  const std::vector<double>& centers,
                                                  const ChartRoom& room, const ChartRect& line);

} // namespace oakfen
