#include "MPPXMLDOMFilter/Streams/CustomFieldProps.h"

namespace brackwater {

namespace {

constexpr std::uint32_t kFieldAliasesType = 0x04400001;
constexpr std::size_t kAliasSize = 104;     // an alias of up to 51 characters and its terminator
constexpr std::size_t kEntrySize = 8;       // type, description ending, offset of the alias
constexpr std::size_t kBlockHeaderSize = 8; // second size and count: offsets and size count from the second size on

// Nine integers behind the aliases; meaning unknown, written as found in real files.
constexpr std::uint32_t kTail[] = {8, 8, 0, 8, 8, 0, 8, 8, 0};

std::uint32_t low32(std::uint64_t value) { return static_cast<std::uint32_t>(value); }

} // namespace

std::unique_ptr<MPPOffsetMarkedData> createFieldAliasesData(const std::vector<std::string>& names) {
    auto aliases = std::make_unique<MPPOffsetMarkedData>();
    for (const std::string& name : names) {
        const std::size_t begin = aliases->dataSize();
        aliases->startNewElement();
        aliases->writeString(name, MPPEncoding::Unicode);
        const std::size_t size = aliases->dataSize() - begin;
        if (size < kAliasSize)
            aliases->writeZeroesBlockOfSize(kAliasSize - size);
        aliases->closeCurrentElement();
    }
    return aliases;
}

void writeFieldAliasesElement(MPPProps& props, const std::vector<std::string>& names, std::uint16_t descriptionEnding,
                              std::uint16_t (*typeForIndex)(std::size_t)) {
    const auto aliases = createFieldAliasesData(names);
    const std::size_t aliasesOffset = kBlockHeaderSize + kEntrySize * names.size();
    const std::size_t blockSize = aliasesOffset + aliases->dataSize();

    props.startNewElementForType(kFieldAliasesType, 0);
    props.writeInteger(low32(blockSize));
    props.writeInteger(low32(blockSize));
    props.writeInteger(low32(names.size()));
    for (std::size_t i = 0; i < names.size(); ++i) {
        props.write2ByteInteger(typeForIndex(i + 1));
        props.write2ByteInteger(descriptionEnding);
        props.writeInteger(low32(aliasesOffset + aliases->offsetOfElementAtIndex(i)));
    }
    props.writeData(aliases->data());
    for (const std::uint32_t value : kTail)
        props.writeInteger(value);
    props.closeCurrentElement();
}

} // namespace brackwater
