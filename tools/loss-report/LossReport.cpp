#include "loss-report/LossReport.h"

#include "loss-report/Comparison.h"

#include "mppinspect/CompoundFile.h"

#include <cstdint>
#include <filesystem>
#include <future>
#include <system_error>

namespace brackwater::lossreport {

LossReport findLosses(const std::string& bundlePath, const std::string& mppPath) {
    const SystemTimeZoneHold hold;
    // Parsing takes most of the time, and the two are independent. A small file is read sooner than a thread starts.
    constexpr std::uintmax_t small = std::uintmax_t{1} << 19;
    std::error_code unknown;
    const bool isSmall = std::filesystem::file_size(mppPath, unknown) < small;
    auto decoded = std::async(isSmall ? std::launch::deferred : std::launch::async, [&mppPath] {
        return inspect::decode(inspect::CompoundFile::open(mppPath), inspect::Extent::Plan);
    });
    const SourcePlan plan = readPlan(bundlePath);
    const inspect::ProjectFile file = decoded.get();
    Comparison comparison(plan, file);
    compareProject(comparison);
    compareTasks(comparison);
    compareResources(comparison);
    compareCalendars(comparison);
    return comparison.takeReport();
}

void writeLosses(inspect::JsonWriter& json, const LossReport& report) {
    json.beginArray();
    for (const Loss& loss : report.losses) {
        json.beginObject();
        const auto add = [&json](std::string_view key, const std::string& value) {
            json.key(key);
            json.text(value);
        };
        add("kind", loss.kind);
        add("object", loss.object);
        add("id", loss.id);
        add("name", loss.name);
        add("field", loss.field);
        add("source", loss.source);
        add("file", loss.file);
        add("why", loss.why);
        json.endObject();
    }
    json.endArray();
}

} // namespace brackwater::lossreport
