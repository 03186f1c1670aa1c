#pragma once

#include "Platform/Time/GregorianCalendar.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace brackwater {

/// Prints and parses dates by a pattern of Unicode's date fields ("yyyy-MM-dd'T'HH:mm:ssZ"), in the default locale.
class DateFormatter {
public:
    explicit DateFormatter(std::string_view pattern, const TimeZone& zone = TimeZone::system());
    ~DateFormatter();
    DateFormatter(const DateFormatter&) = delete;
    DateFormatter& operator=(const DateFormatter&) = delete;

    [[nodiscard]] std::string stringFromDate(Date date) const;
    /// Nothing unless the whole text is a date.
    [[nodiscard]] std::optional<Date> dateFromWholeString(std::string_view text) const;

private:
    struct Contents;
    std::unique_ptr<Contents> _contents;
};

} // namespace brackwater
