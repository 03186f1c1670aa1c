#include "MPPXMLDOMFilter/Streams/CustomFieldProps.h"

namespace brackwater {

namespace {

constexpr std::uint32_t kFieldAliasesType = 0x04400001;
constexpr std::size_t kEntrySize = 8;       // type, description ending, offset of the alias
constexpr std::size_t kBlockHeaderSize = 8; // second size and count: offsets and size count from the second size on

// Nine integers behind the aliases; meaning unknown, written as found in real files.
constexpr std::uint32_t kTail[] = {8, 8, 0, 8, 8, 0, 8, 8, 0};

std::uint32_t low32(std::uint64_t value) { return static_cast<std::uint32_t>(value); }

} // namespace

std::unique_ptr<MPPOffsetMarkedData> createFieldAliasesData(const FieldAliases& aliases) {
    auto data = std::make_unique<MPPOffsetMarkedData>();
    for (const std::string& name : aliases.names) {
        const std::size_t begin = data->dataSize();
        data->startNewElement();
        data->writeString(name, MPPEncoding::Unicode);
        const std::size_t size = data->dataSize() - begin;
        if (size < aliases.room)
            data->writeZeroesBlockOfSize(aliases.room - size);
        data->closeCurrentElement();
    }
    return data;
}

void writeFieldAliasesElement(MPPProps& props, const FieldAliases& aliases, std::uint16_t descriptionEnding,
                              std::uint16_t (*typeForIndex)(std::size_t)) {
    const auto data = createFieldAliasesData(aliases);
    const std::size_t count = aliases.names.size();
    const std::size_t aliasesOffset = kBlockHeaderSize + kEntrySize * count;
    const std::size_t blockSize = aliasesOffset + data->dataSize();

    props.startNewElementForType(kFieldAliasesType, 0);
    props.writeInteger(low32(blockSize));
    props.writeInteger(low32(blockSize));
    props.writeInteger(low32(count));
    for (std::size_t i = 0; i < count; ++i) {
        props.write2ByteInteger(typeForIndex(i + 1));
        props.write2ByteInteger(descriptionEnding);
        props.writeInteger(low32(aliasesOffset + data->offsetOfElementAtIndex(i)));
    }
    props.writeData(data->data());
    for (const std::uint32_t value : kTail)
        props.writeInteger(value);
    props.closeCurrentElement();
}

} // namespace brackwater
