#pragma once

#include "MPPXMLDOMFilter/Model/MPPCalendarTimeRange.h"
#include "Platform/Date.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brackwater {

/// The ranges of one weekday. Shared, since the element that fills the list may still grow it after the week took it.
/// Null and empty differ: null means that the day takes its hours from the base calendar, an empty list is a
/// non-working day.
using MPPDayRanges = std::shared_ptr<MPPRangeList>;

/// A week of working ranges: a calendar's default week, or a dated one.
struct MPPCalendarWorkWeek {
    MPPDayRanges sundayWorkRanges;
    MPPDayRanges mondayWorkRanges;
    MPPDayRanges tuesdayWorkRanges;
    MPPDayRanges wednesdayWorkRanges;
    MPPDayRanges thursdayWorkRanges;
    MPPDayRanges fridayWorkRanges;
    MPPDayRanges saturdayWorkRanges;
    std::optional<std::string> name;
    std::optional<Date> startDate; ///< first day of a dated week
    std::optional<Date> endDate;   ///< last day of a dated week

    /// The seven lists, Sunday first.
    [[nodiscard]] std::array<const MPPDayRanges*, 7> days() const noexcept {
        return {&sundayWorkRanges,   &mondayWorkRanges, &tuesdayWorkRanges, &wednesdayWorkRanges,
                &thursdayWorkRanges, &fridayWorkRanges, &saturdayWorkRanges};
    }
    [[nodiscard]] std::array<MPPDayRanges*, 7> days() noexcept {
        return {&sundayWorkRanges,   &mondayWorkRanges, &tuesdayWorkRanges, &wednesdayWorkRanges,
                &thursdayWorkRanges, &fridayWorkRanges, &saturdayWorkRanges};
    }
    /// True when at least one day has a list of its own, empty or not.
    [[nodiscard]] bool definesAnyDay() const noexcept;
    [[nodiscard]] std::string description() const;
};

} // namespace brackwater
