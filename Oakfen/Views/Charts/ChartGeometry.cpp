#include "Oakfen/Views/Charts/ChartGeometry.h"

#include <algorithm>
#include <cmath>

namespace oakfen {

namespace {

/// Between two labels of one line.
constexpr double labelGap = 20;

bool crosses(const ChartSpot& from, const ChartSpot& to, const ChartRect& rect) {
    const double left = std::max(rect.x, std::min(from.x, to.x));
    const double right = std::min(rect.right(), std::max(from.x, to.x));
    if (left > right) {
        return false;
    }
    const double run = to.x - from.x;
    const auto heightAt = [&](double x) {
        return run == 0 ? from.y : from.y + (to.y - from.y) * (x - from.x) / run;
    };
    const double first = heightAt(left);
    const double last = run == 0 ? to.y : heightAt(right);
    return std::min(first, last) <= rect.bottom() && std::max(first, last) >= rect.y;
}

ChartRect labelRect(double center, double width, const ChartRect& line) {
    const double most = std::max(line.x, line.right() - width);
    return {std::clamp(center - width / 2, line.x, most), line.y, width, line.height};
}

/// Whether every `stride`-th label has its room.
bool fits(const std::vector<double>& widths, const std::vector<double>& centers,
          const ChartRect& line, std::size_t stride) {
    double end = -labelGap;
    for (std::size_t place = 0; place < widths.size(); place += stride) {
        const ChartRect rect = labelRect(centers[place], widths[place], line);
        if (place > 0 && rect.x < end + labelGap) {
            return false;
        }
        end = rect.right();
    }
    return true;
}

} // namespace

bool crosses(const std::vector<ChartSpot>& line, const ChartRect& rect) {
    if (line.size() == 1) {
        return rect.contains(line.front());
    }
    for (std::size_t index = 1; index < line.size(); ++index) {
        if (crosses(line[index - 1], line[index], rect)) {
            return true;
        }
    }
    return false;
}

std::size_t labelStride(const std::vector<std::string>& labels, const std::vector<double>& centers,
                        const ChartRoom& room, const ChartRect& line) {
    std::vector<double> widths;
    widths.reserve(labels.size());
    for (const std::string& label : labels) {
        widths.push_back(room.textWidth(label));
    }
    std::size_t least = 1;
    while (least < labels.size() && !fits(widths, centers, line, least)) {
        ++least;
    }
    for (std::size_t stride = least; stride < 2 * least; ++stride) {
        if ((labels.size() - 1) % stride == 0 && fits(widths, centers, line, stride)) {
            return stride;
        }
    }
    return least;
}

std::vector<PlacedText> placeLabels(const std::vector<std::string>& labels,
                                    const std::vector<double>& centers, const ChartRoom& room,
                                    const ChartRect& line) {
    std::vector<PlacedText> placed;
    if (labels.empty()) {
        return placed;
    }
    const std::size_t stride = labelStride(labels, centers, room, line);
    for (std::size_t place = 0; place < labels.size(); place += stride) {
        const double width = room.textWidth(labels[place]);
        if (!labels[place].empty() && width <= line.width) {
            placed.push_back({labels[place], labelRect(centers[place], width, line)});
        }
    }
    return placed;
}

} // namespace oakfen
