// Working time on texts, printing and comparing of the descriptor, and the debug dump.

#include "Platform/Files/FileURL.h"
#include "Platform/Files/PathText.h"
#include "Platform/Text/TextReadings.h"
#include "Platform/Values/Exception.h"
#include "Platform/Xml/XMLDocument.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"
#include "TWMSPCommon/WorkingTime/WorkingTimeDates.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <system_error>

namespace brackwater {
namespace {

std::optional<Date> dateInSystemZone(std::string_view text) {
    const auto components = MSPIUtilities::componentsFromISODateTime(text);
    return components ? MSPIUtilities::dateFromComponents(*components) : std::nullopt;
}

const char* yesOrNo(bool value) { return value ? "YES" : "NO"; }

std::uint32_t bits(std::int32_t value) { return static_cast<std::uint32_t>(value); }

/// Writes the complete file or nothing, replacing an existing one.
void writeAtomically(const std::string& text, const std::string& path) {
    const std::string besides = path + ".part";
    std::ofstream file(besides, std::ios::binary | std::ios::trunc);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    std::error_code error;
    if (file)
        std::filesystem::rename(besides, path, error);
    if (!file || error) {
        std::filesystem::remove(besides, error);
        failAssertion(
            fmt::format("*** ERROR: MSPIUtilities dumpXMLDocument:workingFolderUrl: Failed to write '{}'.", path));
    }
}

} // namespace

std::optional<std::string> MSPIUtilities::isoDateTimeAdvanceByDuration(std::string_view text, double duration,
                                                                       bool forward,
                                                                       const MSPEScheduleCalendar* calendar) {
    const auto date = dateInSystemZone(text);
    if (!date)
        return std::nullopt;
    return mppToZelbDateTime(dateAdvancedByDuration(*date, duration, forward, calendar));
}

std::optional<std::string> MSPIUtilities::isoDateTimeAdvanceByZelbDuration(std::string_view text,
                                                                           std::string_view zelbDuration, bool forward,
                                                                           const MSPEScheduleCalendar* calendar) {
    const auto duration = static_cast<double>(integerValue(zelbDuration));
    return isoDateTimeAdvanceByDuration(text, duration, forward, calendar);
}

bool MSPIUtilities::isWorkingDay(std::string_view text, const MSPEScheduleCalendar* calendar) {
    const auto date = dateInSystemZone(text);
    return date && isWorkingDayInCalendar(*date, calendar);
}

bool MSPIUtilities::dataStreamParamsEqual(const MPPDataStreamParams& params, const MPPDataStreamParams& other) {
    return params.hasPropsStream == other.hasPropsStream && params.hasFixedStream == other.hasFixedStream &&
           params.hasFixed2Stream == other.hasFixed2Stream && params.firstFixedIndex == other.firstFixedIndex &&
           params.hasVarStream == other.hasVarStream && (!params.hasFixedStream || params.fixed == other.fixed) &&
           (!params.hasFixed2Stream || params.fixed2 == other.fixed2) &&
           (!params.hasVarStream || params.var.metaStreamMagicNumber == other.var.metaStreamMagicNumber);
}

std::string MSPIUtilities::stringFromDataStreamParams(const MPPDataStreamParams& params) {
    const auto& fixed = params.fixed;
    const auto& fixed2 = params.fixed2;
    return fmt::format("MPPDataStreamParams ({}):\n  hasPropsStream={}\n  hasFixedStream={}"
                       "\n    fixed.metaStreamMagicNumber={:X}\n    fixed.metaStreamItemSize={}"
                       "\n    fixed.dataStreamMinItemSize={}\n    fixed.dataStreamMaxItemSize={}"
                       "\n  hasFixed2Stream={}"
                       "\n    fixed2.metaStreamMagicNumber={:X}\n    fixed2.metaStreamItemSize={}"
                       "\n    fixed2.dataStreamMinItemSize={}\n    fixed2.dataStreamMaxItemSize={}"
                       "\n  firstFixedIndex={}\n  hasVarStream={}\n    var.metaStreamMagicNumber={:X}",
                       fmt::ptr(&params), yesOrNo(params.hasPropsStream), yesOrNo(params.hasFixedStream),
                       bits(fixed.metaStreamMagicNumber), fixed.metaStreamItemSize, fixed.dataStreamMinItemSize,
                       fixed.dataStreamMaxItemSize, yesOrNo(params.hasFixed2Stream), bits(fixed2.metaStreamMagicNumber),
                       fixed2.metaStreamItemSize, fixed2.dataStreamMinItemSize, fixed2.dataStreamMaxItemSize,
                       params.firstFixedIndex, yesOrNo(params.hasVarStream), bits(params.var.metaStreamMagicNumber));
}

void MSPIUtilities::dumpXMLDocument(const XMLDocument& document, const FileURL& workingFolderUrl,
                                    std::optional<std::string_view> dumpName, std::int32_t dumpNumber) {
    assertThat(workingFolderUrl.isFileURL(),
               "*** ERROR: MSPIUtilities dumpXMLDocument:workingFolderUrl: Not a file URL: '{}'",
               workingFolderUrl.absoluteString());
    if (kindOfPath(workingFolderUrl.path()) != PathKind::Directory)
        return;
    const std::string folder = stringByAppendingPathComponent(workingFolderUrl.path(), "TWMSPDIFilterDump");
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    assertThat(kindOfPath(folder) == PathKind::Directory,
               "*** ERROR: MSPIUtilities dumpXMLDocument:workingFolderUrl: Failed to locate dump folder: '{}'.",
               folder);
    const std::string number = dumpNumber >= 1 ? fmt::format("({})", dumpNumber) : std::string();
    const std::string name = fmt::format("{}_dump{}.xml", dumpName.value_or("TWMSPDIFilter"), number);
    writeAtomically(document.serialized(), stringByAppendingPathComponent(folder, name));
}

} // namespace brackwater
