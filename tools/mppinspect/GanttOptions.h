#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace brackwater::inspect {

/// What the lower line of the time axis counts.
enum class ScaleStep { Days, Weeks, Months, Quarters, Years, Decades };

/// How the bar chart is to be drawn. Days count from 1983-12-31, as in the file.
struct GanttOptions {
    std::optional<ScaleStep> scale;        ///< none: the finest one with which the plan fits on a screen
    std::optional<std::uint16_t> from, to; ///< the axis' first and last day; none: as the tasks need them
    std::optional<std::uint16_t> today;    ///< where today's line stands; none: no line
};

/// "days", "weeks", "months", "quarters" or "years"; nothing for any other word.
[[nodiscard]] std::optional<ScaleStep> scaleStepOf(std::string_view word);
/// The day of a text such as "2027-03-01"; nothing for any other form, and for days that the file format cannot hold.
[[nodiscard]] std::optional<std::uint16_t> dayOfText(std::string_view text);

} // namespace brackwater::inspect
