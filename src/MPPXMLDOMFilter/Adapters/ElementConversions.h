#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "Platform/Time/Date.h"

#include <cstdint>
#include <optional>
#include <string>

namespace brackwater::conversions {

// The conversions of element texts, under the names that the vocabularies use. A missing text reads as an empty one,
// except for `text`. A text that does not read gives 0, 0.0, false or nothing.

/// The text unchanged.
[[nodiscard]] std::optional<std::string> text(ElementText text);
[[nodiscard]] std::int64_t integer(ElementText text) noexcept;
[[nodiscard]] std::int32_t int32(ElementText text) noexcept;
[[nodiscard]] double number(ElementText text) noexcept;
[[nodiscard]] bool boolean(ElementText text) noexcept;
/// An instant from a wall clock of the system zone; a failed assertion for a text that is no date.
[[nodiscard]] std::optional<Date> date(ElementText text);
/// Seconds.
[[nodiscard]] double duration(ElementText text);
/// Hours of a duration, its minutes and seconds cut off; a failed assertion for a text that is no duration.
[[nodiscard]] double wholeHours(ElementText text);

/// How a log line or a failure shows a text: "(null)" for a missing one.
[[nodiscard]] std::string_view shown(ElementText text) noexcept;

} // namespace brackwater::conversions
