#include "MPPXMLDOMFilter/Walk/TemplateWalk.h"

#include <fmt/core.h>

#include <utility>

namespace brackwater {

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

// A storage of the root never asks the entry table; its children do.
bool TemplateWalk::writeStorage(const MPPFormatReader& reader, MPPFormatWriter& parent) {
    const std::string name = reader.getName();
    const auto storage = parent.createChildWithName(name, true);
    if (!storage)
        return fail(name, "the storage cannot be created");
    const std::int32_t count = reader.numberOfChildren();
    countEntries(reader);
    for (std::int32_t index = 0; index < count; ++index) {
        Reader child = reader.createReaderForChildAtIndex(index);
        if (!child)
            return fail(name, fmt::format("entry {} cannot be read from the template", index));
        const std::string path = name + "/" + child->getName();
        if (!writeEntry(path, *storage, std::move(child)))
            return false;
    }
    return storage->close() || fail(name, "the storage cannot be finished: " + storage->failureText());
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

// What a storage of the template holds counts from the moment it is begun: its entries are not known before.
void TemplateWalk::countEntries(const MPPFormatReader& storage) {
    _entries += static_cast<std::size_t>(std::max(storage.numberOfChildren(), 0));
}

bool TemplateWalk::fail(std::string path, std::string reason) {
    _failure = {std::move(path), std::move(reason)};
    return false;
}

} // namespace brackwater
