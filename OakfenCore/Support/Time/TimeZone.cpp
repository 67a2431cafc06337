#include "OakfenCore/Support/Time/TimeZone.h"

#include <chrono>
#include <cstdlib>
#include <date/tz.h>
#include <fstream>
#include <iterator>
#include <map>
#include <mutex>
#include <stdexcept>
#include <utility>

#include "OakfenCore/Support/Time/CivilDay.h"

namespace oakfen {
namespace {

constexpr std::string_view databaseFolder = "/usr/share/zoneinfo/";

/// Later than any table reaches.
constexpr std::int64_t farFuture = 1'000'000'000'000;

/// The line behind a zone's table that says how its clocks go on after it; empty without one.
std::string closingLine(const std::string& zoneName) {
    std::ifstream file(std::string(databaseFolder) + zoneName, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)),
                            std::istreambuf_iterator<char>());
    if (!bytes.starts_with("TZif") || !bytes.ends_with('\n')) {
        return {};
    }
    const std::size_t end = bytes.size() - 1;
    const std::size_t before = bytes.rfind('\n', end - 1);
    return before == std::string::npos ? std::string() : bytes.substr(before + 1, end - before - 1);
}

bool isUTC(std::string_view name) {
    return name == "UTC" || name == "Etc/UTC";
}

/// What `find` returns; null where the database has no such zone or is missing.
template <typename Find>
const date::time_zone* found(Find find) {
    try {
        return find();
    } catch (const std::runtime_error&) {
        return nullptr;
    }
}

const TimeZone& systemZone() {
    static const TimeZone& zone = []() -> const TimeZone& {
        const date::time_zone* table = found([] { return date::current_zone(); });
        const TimeZone* named = table == nullptr ? nullptr : TimeZone::named(table->name());
        return named == nullptr ? TimeZone::utc() : *named;
    }();
    return zone;
}

/// The zone that a value of `TZ` names: a name or a path into the database, perhaps after a colon.
const TimeZone* zoneOfVariable(std::string_view value) {
    if (value.starts_with(':')) {
        value.remove_prefix(1);
    }
    if (value.starts_with(databaseFolder)) {
        value.remove_prefix(databaseFolder.size());
    }
    return TimeZone::named(value);
}

} // namespace

TimeZone::TimeZone(std::string name, const date::time_zone* table)
    : name_(std::move(name)), table_(table) {
    if (table_ == nullptr) {
        return;
    }
    rule_ = ZoneRule::parse(closingLine(name_));
    if (rule_) {
        const auto last = table_->get_info(date::sys_seconds(std::chrono::seconds(farFuture)));
        tableEnd_ = last.begin.time_since_epoch().count();
    }
}

const TimeZone& TimeZone::utc() {
    static const TimeZone zone("UTC", nullptr);
    return zone;
}

const TimeZone* TimeZone::named(std::string_view name) {
    if (isUTC(name)) {
        return &utc();
    }
    static std::mutex mutex;
    static std::map<std::string, TimeZone, std::less<>> zones;
    const std::scoped_lock lock(mutex);
    const auto known = zones.find(name);
    if (known != zones.end()) {
        return &known->second;
    }
    const date::time_zone* table = found([&] { return date::locate_zone(name); });
    if (table == nullptr) {
        return nullptr;
    }
    return &zones.try_emplace(std::string(name), std::string(name), table).first->second;
}

const TimeZone& TimeZone::current() {
    const char* variable = std::getenv("TZ");
    if (variable == nullptr) {
        return systemZone();
    }
    // Asked for each line of a statement, so the last answer is kept.
    thread_local std::string lastValue;
    thread_local const TimeZone* lastZone = nullptr;
    if (lastZone == nullptr || lastValue != variable) {
        const TimeZone* zone = zoneOfVariable(variable);
        lastValue = variable;
        lastZone = zone == nullptr ? &systemZone() : zone;
    }
    return *lastZone;
}

std::int64_t TimeZone::offsetAt(std::int64_t instant) const {
    if (table_ == nullptr) {
        return 0;
    }
    if (instant >= tableEnd_) {
        return rule_->offsetAt(instant);
    }
    return table_->get_info(date::sys_seconds(std::chrono::seconds(instant))).offset.count();
}

std::int64_t TimeZone::instantOf(std::int64_t local) const {
    if (table_ == nullptr) {
        return local;
    }
    // Clocks are never a whole day from UTC, so past that day the table is behind this time.
    if (tableEnd_ < farFuture && local - secondsPerDay > tableEnd_) {
        return rule_->instantOf(local);
    }
    const auto info = table_->get_info(date::local_seconds(std::chrono::seconds(local)));
    if (info.result == date::local_info::nonexistent) {
        return info.first.end.time_since_epoch().count();
    }
    return local - info.first.offset.count();
}

} // namespace oakfen
