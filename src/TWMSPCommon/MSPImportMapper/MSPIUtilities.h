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

/// Conversions between the forms of dates and durations.
///
/// Dates: source text (ISO, the zone in the text), MSPDI text (ISO without zone: wall clock of the system zone) and
/// instants. Durations: source text (decimal seconds), MSPDI text ("PT1H0M0S"), seconds as a double, and clock text
/// ("08:00:00").
///
/// An empty text parameter is a missing one. A text ends at its first NUL. Numbers without end saturate at 64 bits.
/// What is called an assertion below raises kInternalInconsistencyException.
class MSPIUtilities {
public:
    MSPIUtilities() = delete;

    // Reading and printing of ISO texts.

    /// Reads date, time and zone as far as the text has them, and answers which; NSNotFound for an empty text. A text
    /// that holds none of them gives 0. A date must be followed by "T" where a time follows: an assertion with an empty
    /// message otherwise. Fractions of a second are dropped, and with them an offset that follows (but not "Z").
    static UnitMask updateDateTimeComponentsFromISODateTime(MSPCDateComponents& components, std::string_view text);
    /// Reads "PnYnMnDTnHnMnS" wherever it stands in the text; NSNotFound where it is not found. "T" is required.
    static UnitMask updateDateTimeComponentsFromISODuration(MSPCDateComponents& components, std::string_view text);
    /// Prints the fields that the mask names; nothing for NSNotFound.
    [[nodiscard]] static std::optional<std::string> stringFromComponents(const MSPCDateComponents& components,
                                                                         UnitMask unitFlags);
    /// The fields read in the system zone, the components' own zone aside; nothing where no instant can hold them.
    [[nodiscard]] static std::optional<Date> dateFromComponents(const DateComponents& components);
    [[nodiscard]] static std::optional<MSPCDateComponents> componentsFromISODateTime(std::string_view text);

    // Tests; false for an empty text.

    [[nodiscard]] static bool isIsoiDateTime(std::string_view text);
    [[nodiscard]] static bool isZelbDateTime(std::string_view text);  ///< an ISO date-time with a zone
    [[nodiscard]] static bool isMspdiDateTime(std::string_view text); ///< an ISO date-time without a zone
    [[nodiscard]] static bool isMspdiDuration(std::string_view text);

    // Dates. An empty text or a missing date gives nothing.

    /// Assertion when the text has a zone or nothing that reads.
    [[nodiscard]] static std::optional<Date> mspdiToMppDateTime(std::string_view text);
    /// A text without a zone is read in the system zone.
    [[nodiscard]] static std::optional<Date> zelbToMppDateTime(std::string_view text);
    /// Wall clock and offset of the system zone, "2012-06-01T09:00:00+02:00", or "Z" at offset 0.
    [[nodiscard]] static std::optional<std::string> mppToZelbDateTime(std::optional<Date> date);
    [[nodiscard]] static std::optional<std::string> mppToMspdiDateTime(std::optional<Date> date);
    /// A text without a zone is read as UTC.
    [[nodiscard]] static std::optional<std::string> zelbToMspdiDateTime(std::string_view text);
    [[nodiscard]] static std::optional<std::string> zelbToMspdiDateOnly(std::string_view text);
    [[nodiscard]] static std::optional<std::string> zelbToMspdiDateStartTime(std::string_view text); ///< T00:00:00
    [[nodiscard]] static std::optional<std::string> zelbToMspdiDateEndTime(std::string_view text);   ///< T23:59:59
    /// The units asked for only; 0 asks for all.
    [[nodiscard]] static std::optional<std::string> zelbToMspdiDateTime(std::string_view text, UnitMask calendarUnits);
    [[nodiscard]] static std::optional<std::string> mspdiToZelbDateTime(std::string_view text);
    /// Seconds since midnight.
    [[nodiscard]] static std::optional<std::string> mspdiToZelbTimeOnly(std::string_view text);
    /// "2012-06-01 07:00:00 +0000".
    [[nodiscard]] static std::optional<std::string> mspdiDateTimeToString(std::string_view text);
    /// -1, 0 or 1.
    [[nodiscard]] static int compareMspdiDateTime(std::string_view text, std::string_view other);

    // Durations. As an MSPDI text one has -2^31 to 2^31 - 1 seconds: what lies beyond becomes the nearer of the two.

    /// Hours, minutes and seconds of the text; its years, months and days do not count. -1 for an empty text,
    /// an assertion for one that does not read.
    [[nodiscard]] static std::int64_t mspdiDurationInSecs(std::string_view text);
    [[nodiscard]] static std::optional<std::string> mspdiToZelbDuration(std::string_view text);
    /// Seconds; the strict form "PTnHnMnS" only, 0.0 for any other.
    [[nodiscard]] static double mspdiToMppDuration(std::string_view text);
    [[nodiscard]] static std::string mppToZelbDuration(double seconds);
    [[nodiscard]] static std::string mppToMspdiDuration(double seconds);
    [[nodiscard]] static std::optional<std::string> zelbToMspdiDuration(std::optional<std::string_view> text);
    [[nodiscard]] static std::string hourMinSecFromDuration(double seconds);

    // Working time. A calendar is ignored with a warning: the standard calendar always counts.

    /// Nothing where the text does not read.
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
    /// Writes the document to "TWMSPDIFilterDump/NAME_dump.xml" below the folder, "NAME_dump(N).xml" for a number of 1
    /// or more; NAME is "TWMSPDIFilter" without a name. Does nothing where the folder does not exist; assertions for a
    /// URL of another scheme and a dump folder that cannot be made.
    static void dumpXMLDocument(const XMLDocument& document, const FileURL& workingFolderUrl,
                                std::optional<std::string_view> dumpName, std::int32_t dumpNumber = 0);
};

} // namespace brackwater
