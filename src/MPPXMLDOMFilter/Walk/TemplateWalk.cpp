#include "MPPXMLDOMFilter/Walk/TemplateWalk.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "MPPXMLDOMFilter/Streams/MPP12AssignmentWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12ProjectPropsWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12RscWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12SequentialPropsReader.h"
#include "MPPXMLDOMFilter/Streams/MPP12TaskWriter.h"
#include "MPPXMLDOMFilter/Streams/MPPCalendarWriters.h"
#include "MPPXMLDOMFilter/Streams/MPPConstraintWriters.h"
#include "MPPXMLDOMFilter/Streams/MPPSummaryInfoWriters.h"
#include "MPPXMLDOMFilter/Streams/MPPViewStorageWriters.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

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

/// The first matching rule selects the writer.
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

namespace {

/// Row sizes from the project's properties in a template storage, for the rows written to it.
void takeRowSizes(const MPPFormatReader& storage, MPPBookkeeping& bookkeeping) {
    constexpr std::uint32_t kTaskSecondRowSize = 0x00040001;
    const auto stream = storage.createReaderForChildWithName("Props");
    auto bytes = stream && !stream->isDirectory() ? stream->readAll() : std::nullopt;
    if (!bytes)
        return;
    MPP12SequentialPropsReader props(std::move(*bytes));
    while (props.readNextProperty())
        if (props.curPropertyType() == kTaskSecondRowSize && !props.curPropertyData().empty())
            bookkeeping.taskSecondRowSize = props.curPropertyData()[0]; // far below 256
}

} // namespace

bool TemplateWalk::writeEntries(const MPPFormatReader& templateRoot, MPPFormatWriter& outputRoot) {
    const std::int32_t count = templateRoot.numberOfChildren();
    countEntries(templateRoot);
    for (std::int32_t index = 0; index < count; ++index) {
        const Reader reader = templateRoot.createReaderForChildAtIndex(index);
        if (!reader)
            return fail("", fmt::format("entry {} cannot be read from the template", index));
        const bool written = reader->isDirectory() ? writeStorage(*reader, outputRoot)
                                                   : writeEntry(reader->getName(), outputRoot, reader);
        if (!written)
            return false;
    }
    return true;
}

// The entry table applies to the children of a root storage, not to the storage itself.
bool TemplateWalk::writeStorage(const MPPFormatReader& reader, MPPFormatWriter& parent) {
    const std::string name = reader.getName();
    const auto storage = parent.createChildWithName(name, true);
    if (!storage)
        return fail(name, "the storage cannot be created");
    if (_project != nullptr && _project->bookkeeping)
        takeRowSizes(reader, *_project->bookkeeping);
    std::vector<Reader> lastChildren;
    const std::int32_t count = reader.numberOfChildren();
    countEntries(reader);
    for (std::int32_t index = 0; index < count; ++index) {
        Reader child = reader.createReaderForChildAtIndex(index);
        if (!child)
            return fail(name, fmt::format("entry {} cannot be read from the template", index));
        if (tellsOfOthers(*child))
            lastChildren.push_back(std::move(child));
        else if (!writeChild(name, *storage, std::move(child)))
            return false;
    }
    for (Reader& child : lastChildren)
        if (!writeChild(name, *storage, std::move(child)))
            return false;
    return storage->close() || fail(name, "the storage cannot be finished: " + storage->failureText());
}

bool TemplateWalk::tellsOfOthers(const MPPFormatReader& child) const {
    return _project != nullptr && _project->bookkeeping && !child.isDirectory() && child.getName() == "Props";
}

bool TemplateWalk::writeChild(const std::string& storageName, MPPFormatWriter& storage, Reader child) {
    const std::string path = storageName + "/" + child->getName();
    return writeEntry(path, storage, std::move(child));
}

bool TemplateWalk::writeEntry(const std::string& path, MPPFormatWriter& parent, Reader reader) {
    const std::string name = reader->getName();
    const auto writer = MPPProjectWriter::createWriterForRootSonName(name, parent, std::move(reader));
    if (!writer)
        return fail(path, "the entry cannot be created");
    if (!writer->writeDataForProject(_project))
        return fail(path, writer->failureReason());
    if (!writer->finish())
        return fail(path, writer->failureReason());
    ++_writtenEntries;
    if (_progress != nullptr)
        _progress->advance(ExportPhase::Writing, _writtenEntries, _entries);
    return true;
}

// Counts the entries of a template storage when it begins: their number is not known before.
void TemplateWalk::countEntries(const MPPFormatReader& storage) {
    _entries += static_cast<std::size_t>(std::max(storage.numberOfChildren(), 0));
}

bool TemplateWalk::fail(std::string path, std::string reason) {
    _failure = {std::move(path), std::move(reason)};
    return false;
}

} // namespace brackwater
