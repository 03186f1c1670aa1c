#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEIdMapper.h"

#include "Platform/Text/TextReadings.h"
#include "Platform/Values/Exception.h"

namespace brackwater {

namespace {

constexpr char kResourcePrefix = 'r';
constexpr char kTaskPrefix = 't';
constexpr const char* kTopUID = "0";

bool hasPrefix(const std::optional<std::string>& id, char prefix) { return id && id->starts_with(prefix); }

std::string uidFromId(std::string_view id, const std::string& topId) {
    if (id == topId)
        return kTopUID;
    const std::string_view number = id.substr(1);
    return integerValue(number) > 0 ? std::string(number) : std::string();
}

} // namespace

MSPEIdMapper::MSPEIdMapper(std::optional<std::string> topResourceId, std::optional<std::string> topTaskId) {
    assertThat(hasPrefix(topResourceId, kResourcePrefix),
               "Invalid format of ZELB top Resource ID (must begin with 'r'): {}", topResourceId.value_or("(null)"));
    assertThat(hasPrefix(topTaskId, kTaskPrefix), "Invalid format of ZELB top Task ID (must begin with 't'): {}",
               topTaskId.value_or("(null)"));
    _topResourceId = std::move(*topResourceId);
    _topTaskId = std::move(*topTaskId);
}

std::string MSPEIdMapper::resourceUIDFromZelbResourceId(std::optional<std::string_view> id) const {
    if (!id || id->empty())
        return {};
    assertThat(id->starts_with(kResourcePrefix), "Invalid format of ZELB Resource ID (must begin with 'r'): {}", *id);
    return uidFromId(*id, _topResourceId);
}

std::string MSPEIdMapper::taskUIDFromZelbId(std::optional<std::string_view> id) const {
    if (!id || id->empty())
        return {};
    assertThat(isTaskId(*id), "Invalid format of ZELB Task ID (must begin with 't'): {}", *id);
    return uidFromId(*id, _topTaskId);
}

bool MSPEIdMapper::isTaskId(std::string_view id) { return id.empty() || id.starts_with(kTaskPrefix); }

} // namespace brackwater
