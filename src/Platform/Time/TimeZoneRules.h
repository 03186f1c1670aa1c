#pragma once

#include "Platform/Time/TimeZone.h"

#include <unicode/basictz.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace brackwater {

/// The offsets of a zone, taken out of ICU once into a table of transitions, since asking ICU costs many times a look
/// into the table. What lies behind the table's end is asked of ICU. For this folder's sources only.
class TimeZone::Rules {
public:
    struct Offset {
        std::int64_t total = 0;    ///< seconds east of Greenwich, daylight time included
        std::int64_t daylight = 0; ///< the part of it that daylight time adds
    };

    /// A fixed offset.
    Rules(std::string name, std::int64_t secondsFromGMT);
    /// A zone of ICU.
    explicit Rules(std::unique_ptr<icu::BasicTimeZone> zone);

    [[nodiscard]] const std::string& name() const { return _name; }
    /// At an instant, in seconds since 1970.
    [[nodiscard]] Offset offsetAt(std::int64_t seconds) const;
    /// At a wall time, in seconds since 1970-01-01T00:00:00 of the wall clock: the offset before the change both for a
    /// time that the change skips (which so moves forward) and for one that it repeats (which so takes the first).
    [[nodiscard]] std::int64_t totalOffsetAtWallTime(std::int64_t wallSeconds) const;
    /// A zone of ICU with these rules, for the caller.
    [[nodiscard]] std::unique_ptr<icu::TimeZone> newIcuZone() const;

private:
    struct Transition {
        std::int64_t instant;  ///< first second with the new offset
        std::int64_t wallTime; ///< first wall time that is read with the new offset
        Offset offset;
    };

    /// The transition behind `seconds`, by the clock that `time` names. Dates that follow each other mostly lie between
    /// the same two transitions, so those of the last question are tried first.
    template <auto time>
    [[nodiscard]] std::size_t indexBehind(std::int64_t seconds) const;

    void readTransitions();
    void append(std::int64_t instant, Offset offset);

    std::string _name;
    std::unique_ptr<icu::BasicTimeZone> _zone; ///< none for a fixed offset
    Offset _initial;                           ///< before the first transition
    std::vector<Transition> _transitions;
    mutable std::size_t _lastIndex = 0;
    bool _hasMore = false; ///< there are transitions behind the table's end
};

} // namespace brackwater
