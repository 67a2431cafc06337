#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#include "OakfenCore/Models/Library.h"

namespace oakfen {

/// Finds the positions of records by their ids: an open-addressing table with eight bytes a place.
///
/// It keeps a part of each id's hash and no id, so every call is given a function from a position
/// to the id that is there; that is asked only where the hashes agree.
class PositionTable {
public:
    explicit PositionTable(std::size_t expected = 0)
        : places_(std::bit_ceil(std::max<std::size_t>(2 * expected, 16))) {}

    /// The position stored for that id.
    template <typename IDAt>
    [[nodiscard]] std::optional<std::uint32_t> find(const UUID& id, IDAt&& idAt) const {
        const std::uint32_t tag = tagOf(id);
        for (std::size_t index = tag & mask(); places_[index].position != none;
             index = (index + 1) & mask()) {
            const Place& place = places_[index];
            if (place.tag == tag && idAt(place.position) == id) {
                return place.position;
            }
        }
        return std::nullopt;
    }

    /// Stores the position if the id has none yet. Returns the stored one, which may be overwritten
    /// until the next call, and whether it is new.
    template <typename IDAt>
    std::pair<std::uint32_t&, bool> insert(const UUID& id, std::uint32_t position, IDAt&& idAt) {
        if (2 * (count_ + 1) > places_.size()) {
            grow();
        }
        const std::uint32_t tag = tagOf(id);
        std::size_t index = tag & mask();
        for (; places_[index].position != none; index = (index + 1) & mask()) {
            if (places_[index].tag == tag && idAt(places_[index].position) == id) {
                return {places_[index].position, false};
            }
        }
        places_[index] = {tag, position};
        ++count_;
        return {places_[index].position, true};
    }

private:
    static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

    struct Place {
        std::uint32_t tag = 0;
        std::uint32_t position = none;
    };

    [[nodiscard]] static std::uint32_t tagOf(const UUID& id) {
        return static_cast<std::uint32_t>(std::hash<UUID>()(id) >> 32U);
    }
    [[nodiscard]] std::size_t mask() const { return places_.size() - 1; }

    void grow() {
        std::vector<Place> smaller(2 * places_.size());
        smaller.swap(places_);
        for (const Place& place : smaller) {
            if (place.position == none) {
                continue;
            }
            std::size_t index = place.tag & mask();
            while (places_[index].position != none) {
                index = (index + 1) & mask();
            }
            places_[index] = place;
        }
    }

    std::vector<Place> places_; // a power of two, at most half of them taken
    std::size_t count_ = 0;
};

/// The records of a short array by id; of two with one id the first counts.
template <typename Record>
class RecordsByID {
public:
    explicit RecordsByID(const SharedArray<Record>& records) : positions_(records.size()) {
        for (const Record& record : records) {
            const auto position = static_cast<std::uint32_t>(records_.size());
            if (positions_.insert(record.id, position, idAt()).second) {
                records_.push_back(&record);
            }
        }
    }

    [[nodiscard]] std::optional<std::uint32_t> position(const UUID& id) const {
        return positions_.find(id, idAt());
    }
    [[nodiscard]] const Record* find(const UUID& id) const {
        const auto found = position(id);
        return found ? records_[*found] : nullptr;
    }
    /// The distinct records in the document's order.
    [[nodiscard]] const std::vector<const Record*>& records() const { return records_; }

private:
    [[nodiscard]] auto idAt() const {
        return [this](std::uint32_t position) -> const UUID& { return records_[position]->id; };
    }

    std::vector<const Record*> records_;
    PositionTable positions_;
};

} // namespace oakfen
