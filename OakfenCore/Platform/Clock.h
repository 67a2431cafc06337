#pragma once

#include "OakfenCore/Support/Time/Calendar.h"
#include "OakfenCore/Support/Time/Date.h"

namespace oakfen {

/// Where the present moment comes from. Model code never asks: it is handed `now` and `calendar`.
class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual Date now() const = 0;
    [[nodiscard]] virtual Calendar calendar() const = 0;
};

/// The system's clock and zone. Its moments are whole seconds, as the file keeps them: a fraction
/// would be lost with the next start, and entries of one second might change places.
class SystemClock final : public Clock {
public:
    [[nodiscard]] Date now() const override;
    [[nodiscard]] Calendar calendar() const override { return Calendar::current(); }
};

} // namespace oakfen
