#include "MPPXMLDOMFilter/Walk/EntryTable.h"

#include "MPPXMLDOMFilter/Streams/MPP12AssignmentWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12CEdlWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12CTableWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12CViewWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12CalendarWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12ConstraintWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12ProjectDocSInfoWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12ProjectPropsWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12ProjectSInfoWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12RscWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12TaskWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP14CalendarWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP14ConstraintWriter.h"

#include <algorithm>
#include <array>
#include <utility>

namespace brackwater {

namespace {

using Writer = std::shared_ptr<MPPFormatWriter>;
using Reader = std::shared_ptr<MPPFormatReader>;

template <typename Class>
std::unique_ptr<MPPWriter> make(Writer writer, Reader reader) {
    return std::make_unique<Class>(std::move(writer), std::move(reader));
}

struct EntryRule {
    std::string_view name;
    std::string_view parentName; ///< empty: any
    std::unique_ptr<MPPWriter> (*make)(Writer, Reader);
};

constexpr std::string_view kAnyParent;
constexpr std::string_view kFolder2007 = "   112";
constexpr std::string_view kFolder2010 = "   114";

/// The first rule that fits names the writer.
constexpr std::array<EntryRule, 16> kEntryTable = {{
    {"TBkndTask", kAnyParent, make<MPP12TaskWriter>},
    {"TBkndAssn", kAnyParent, make<MPP12AssignmentWriter>},
    {"TBkndRsc", kAnyParent, make<MPP12RscWriter>},
    {"TBkndCal", kFolder2007, make<MPP12CalendarWriter>},
    {"TBkndCal", kFolder2010, make<MPP14CalendarWriter>},
    {"TBkndCons", kFolder2007, make<MPP12ConstraintWriter>},
    {"TBkndCons", kFolder2010, make<MPP14ConstraintWriter>},
    {"Props", kFolder2007, make<MPP12ProjectPropsWriter>},
    {"Props", kFolder2010, make<MPP12ProjectPropsWriter>},
    {"Props12", kAnyParent, make<MPP12ProjectPropsWriter>},
    {"Props14", kAnyParent, make<MPP12ProjectPropsWriter>},
    {"\x05SummaryInformation", kAnyParent, make<MPP12ProjectSInfoWriter>},
    {"\x05"
     "DocumentSummaryInformation",
     kAnyParent, make<MPP12ProjectDocSInfoWriter>},
    {"CV_iew", kAnyParent, make<MPP12CViewWriter>},
    {"CTable", kAnyParent, make<MPP12CTableWriter>},
    {"CEdl", kAnyParent, make<MPP12CEdlWriter>},
}};

} // namespace

std::unique_ptr<MPPWriter> newWriterForEntry(std::string_view name, std::string_view parentName, Writer writer,
                                             Reader reader) {
    const auto rule = std::find_if(kEntryTable.begin(), kEntryTable.end(), [&](const EntryRule& candidate) {
        return candidate.name == name && (candidate.parentName == kAnyParent || candidate.parentName == parentName);
    });
    const auto makeWriter = rule != kEntryTable.end() ? rule->make : make<MPPWriter>;
    return makeWriter(std::move(writer), std::move(reader));
}

} // namespace brackwater
