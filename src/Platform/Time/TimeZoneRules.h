#pragma once

#include "Platform/Time/TimeZone.h"

#include <unicode/basictz.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace brackwater {

/// The offsets of a zone, read from ICU once into a table of transitions, which is many times faster to search than
/// ICU. Dates after the table's end are looked up in ICU. Only for this folder's sources.
class TimeZone::Rules {
public:
    struct Offset {
        std::int64_t total = 0;    ///< seconds east of Greenwich, including daylight saving time
        std::int64_t daylight = 0; ///< the part added by daylight saving time
    };

    /// A fixed offset.
    Rules(std::string name, std::int64_t secondsFromGMT);
    /// An ICU zone.
    explicit Rules(std::unique_ptr<icu::BasicTimeZone> zone);

    [[nodiscard]] const std::string& name() const { return _name; }
    /// At an instant, in seconds since 1970.
    [[nodiscard]] Offset offsetAt(std::int64_t seconds) const;
    /// At a local time, in seconds since 1970-01-01T00:00:00 local time: the offset before the clock change, both for a
    /// skipped time (which thus moves forward) and for a repeated one (which thus is the earlier instant).
    [[nodiscard]] std::int64_t totalOffsetAtWallTime(std::int64_t wallSeconds) const;
    /// A new ICU zone with these rules.
    [[nodiscard]] std::unique_ptr<icu::TimeZone> newIcuZone() const;

private:
    struct Transition {
        std::int64_t instant;  ///< first second with the new offset
        std::int64_t wallTime; ///< first local time with the new offset
        Offset offset;
    };

    /// The transition after `seconds`, on the clock that `time` selects.
    template <auto time>
    [[nodiscard]] std::size_t indexBehind(std::int64_t seconds) const;

    void readTransitions();
    void append(std::int64_t instant, Offset offset);

    std::string _name;
    std::unique_ptr<icu::BasicTimeZone> _zone; ///< none for a fixed offset
    Offset _initial;                           ///< before the first transition
    std::vector<Transition> _transitions;
    bool _hasMore = false; ///< there are transitions after the table's end
};

} // namespace brackwater
