#include "TWMSPCommon/MSPExportMapper/Source/MSPESourceLists.h"

#include "TWMSPCommon/MSPCExtensions.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEChildElements.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEProjectMapper.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPEScheduledTaskInfo.h"

#include <algorithm>

namespace brackwater {

namespace {

std::vector<std::string> textsOfChildren(XMLElement element, std::string_view name) {
    std::vector<std::string> texts;
    std::string buffer;
    forEachChildElement(element, name, [&](XMLElement child) {
        texts.push_back(stringByReplacingOccurrencesOfNewline(child.textView(buffer)));
    });
    return texts;
}

} // namespace

MPPSourceFields sourceFields(XMLElement element) {
    MPPSourceFields fields;
    std::optional<XMLElement> userData;
    forEachChildElement(element, "user-data", [&userData](XMLElement child) { userData = child; });
    if (!userData)
        return fields;
    auto keys = textsOfChildren(*userData, "key");
    auto values = textsOfChildren(*userData, "string");
    for (std::size_t i = 0; i < std::min(keys.size(), values.size()); ++i)
        fields.emplace_back(std::move(keys[i]), std::move(values[i]));
    return fields;
}

std::vector<MPPSourceSegment> sourceSegments(const MSPEProjectMapper& projectMapper, XMLElement zelbTask) {
    std::vector<MPPSourceSegment> segments;
    bool isSplit = false;
    forEachChildElement(zelbTask, "split", [&isSplit](XMLElement) { isSplit = true; });
    if (!isSplit)
        return segments;
    forEachChildElement(zelbTask, "child-task", [&](XMLElement reference) {
        const auto id = reference.attributeView("idref");
        const MSPEScheduledTaskInfo* const* info = id ? projectMapper.scheduledTasks().find(*id) : nullptr;
        if (info != nullptr)
            segments.push_back({(*info)->startDate(), (*info)->endDate(), (*info)->duration(), (*info)->effort()});
    });
    return segments;
}

} // namespace brackwater
