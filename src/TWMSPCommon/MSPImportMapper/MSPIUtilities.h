#pragma once

#include "Platform/Time/Date.h"
#include "TWMSPCommon/MSPCDateComponents.h"
#include "TWMSPCommon/MSPImportMapper/MPPDataStreamParams.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brackwater {

class FileURL;
class MSPEScheduleCalendar;
class XMLDocument;

/// Conversions of dates and durations between formats.
///
/// Dates: source text (ISO, with the zone in the text), MSPDI text (ISO without zone: local time of the system zone)
/// and instants. Durations: source text (decimal seconds), MSPDI text ("PT1H0M0S"), seconds as a double, and clock text
/// ("08:00:00").
///
/// An empty text parameter means none. A text ends at its first NUL. Overlong numbers saturate to 64 bits. The
/// assertions below raise kInternalInconsistencyException.
class MSPIUtilities {
public:
    MSPIUtilities() = delete;

    // Parsing and printing of ISO texts.

    /// Parses date, time and zone as far as the text has them, and returns which; NSNotFound for an empty text, 0 for a
    /// text without any of them. "T" must separate a date from a time: otherwise an assertion with an empty message.
    /// Fractions of a second are dropped, and with them an offset that follows (but not "Z").
    static UnitMask updateDateTimeComponentsFromISODateTime(MSPCDateComponents& components, std::string_view text);
    /// Parses "PnYnMnDTnHnMnS" anywhere in the text; NSNotFound if there is none. "T" is required.
    static UnitMask updateDateTimeComponentsFromISODuration(MSPCDateComponents& components, std::string_view text);
    /// Prints the fields in the mask; nothing for NSNotFound.
    [[nodiscard]] static std::optional<std::string> stringFromComponents(const MSPCDateComponents& components,
                                                                         UnitMask unitFlags);
    /// The fields interpreted in the system zone, ignoring the components' own zone; nothing if they exceed the range
    /// of an instant.
    [[nodiscard]] static std::optional<Date> dateFromComponents(const DateComponents& components);
    [[nodiscard]] static std::optional<MSPCDateComponents> componentsFromISODateTime(std::string_view text);

    // Tests; false for an empty text.

    [[nodiscard]] static bool isIsoiDateTime(std::string_view text);
    [[nodiscard]] static bool isZelbDateTime(std::string_view text);  ///< an ISO date-time with a zone
    [[nodiscard]] static bool isMspdiDateTime(std::string_view text); ///< an ISO date-time without a zone
    [[nodiscard]] static bool isMspdiDuration(std::string_view text);

    // Dates. An empty text or a missing date gives nothing.

    /// Assertion if the text has a zone or cannot be parsed.
    [[nodiscard]] static std::optional<Date> mspdiToMppDateTime(std::string_view text);
    /// A text without a zone is in the system zone.
    [[nodiscard]] static std::optional<Date> zelbToMppDateTime(std::string_view text);
    /// Local time and offset of the system zone, "2012-06-01T09:00:00+02:00", or "Z" at offset 0.
    [[nodiscard]] static std::optional<std::string> mppToZelbDateTime(std::optional<Date> date);
    [[nodiscard]] static std::optional<std::string> mppToMspdiDateTime(std::optional<Date> date);
    /// A text without a zone is UTC.
    [[nodiscard]] static std::optional<std::string> zelbToMspdiDateTime(std::string_view text);
    [[nodiscard]] static std::optional<std::string> zelbToMspdiDateOnly(std::string_view text);
    [[nodiscard]] static std::optional<std::string> zelbToMspdiDateStartTime(std::string_view text); ///< T00:00:00
    [[nodiscard]] static std::optional<std::string> zelbToMspdiDateEndTime(std::string_view text);   ///< T23:59:59
    /// Only the requested units; 0 means all.
    [[nodiscard]] static std::optional<std::string> zelbToMspdiDateTime(std::string_view text, UnitMask calendarUnits);
    [[nodiscard]] static std::optional<std::string> mspdiToZelbDateTime(std::string_view text);
    /// Seconds since midnight.
    [[nodiscard]] static std::optional<std::string> mspdiToZelbTimeOnly(std::string_view text);
    /// "2012-06-01 07:00:00 +0000".
    [[nodiscard]] static std::optional<std::string> mspdiDateTimeToString(std::string_view text);
    /// -1, 0 or 1.
    [[nodiscard]] static int compareMspdiDateTime(std::string_view text, std::string_view other);

    // Durations. As an MSPDI text, a duration is limited to -2^31 to 2^31 - 1 seconds.

    /// Hours, minutes and seconds of the text; years, months and days are ignored. -1 for an empty text, an assertion
    /// for an unparsable one.
    [[nodiscard]] static std::int64_t mspdiDurationInSecs(std::string_view text);
    [[nodiscard]] static std::optional<std::string> mspdiToZelbDuration(std::string_view text);
    /// Seconds; only the strict form "PTnHnMnS", 0.0 for any other.
    [[nodiscard]] static double mspdiToMppDuration(std::string_view text);
    [[nodiscard]] static std::string mppToZelbDuration(double seconds);
    [[nodiscard]] static std::string mppToMspdiDuration(double seconds);
    [[nodiscard]] static std::optional<std::string> zelbToMspdiDuration(std::optional<std::string_view> text);
    [[nodiscard]] static std::string hourMinSecFromDuration(double seconds);

    // Working time. A calendar is ignored with a warning: the standard calendar always applies.

    /// Nothing if the text cannot be parsed.
    [[nodiscard]] static std::optional<std::string> isoDateTimeAdvanceByDuration(std::string_view text, double duration,
                                                                                 bool forward,
                                                                                 const MSPEScheduleCalendar* calendar);
    [[nodiscard]] static std::optional<std::string>
    isoDateTimeAdvanceByZelbDuration(std::string_view text, std::string_view zelbDuration, bool forward,
                                     const MSPEScheduleCalendar* calendar);
    [[nodiscard]] static bool isWorkingDay(std::string_view text, const MSPEScheduleCalendar* calendar);

    // Tools.

    [[nodiscard]] static bool dataStreamParamsEqual(const MPPDataStreamParams& params,
                                                    const MPPDataStreamParams& other);
    [[nodiscard]] static std::string stringFromDataStreamParams(const MPPDataStreamParams& params);
    /// Writes the document to "TWMSPDIFilterDump/NAME_dump.xml" below the folder, or "NAME_dump(N).xml" for a number of
    /// 1 or more; the default NAME is "TWMSPDIFilter". Does nothing if the folder does not exist; assertions if the URL
    /// has another scheme or the dump folder cannot be created.
    static void dumpXMLDocument(const XMLDocument& document, const FileURL& workingFolderUrl,
                                std::optional<std::string_view> dumpName, std::int32_t dumpNumber = 0);
};

} // namespace brackwater
