#include "RootStreams.h"

#include <utility>

namespace brackwater::layout {

namespace {

// A text of a CompObj stream: its length counts the terminator.
void countedText(ByteBuilder& stream, std::string_view text) {
    stream.u32(static_cast<std::uint32_t>(text.size() + 1)).ascii(text).u8(0);
}

// The classes of a project document and of the two property sets, in the byte order of the file.
constexpr GuidBytes kProjectClass{0x3A, 0x8F, 0xB7, 0x74, 0xC8, 0xC8, 0xD1, 0x11,
                                  0xBE, 0x11, 0x00, 0xC0, 0x4F, 0xB6, 0xFA, 0xF1};
constexpr GuidBytes kSummaryFormat{0xE0, 0x85, 0x9F, 0xF2, 0xF9, 0x4F, 0x68, 0x10,
                                   0xAB, 0x91, 0x08, 0x00, 0x2B, 0x27, 0xB3, 0xD9};
constexpr GuidBytes kDocumentSummaryFormat{0x02, 0xD5, 0xCD, 0xD5, 0x9C, 0x2E, 0x1B, 0x10,
                                           0x93, 0x97, 0x08, 0x00, 0x2B, 0x2C, 0xF9, 0xAE};

constexpr std::uint32_t kShortForm = 2, kIntegerForm = 3, kTextForm = 30;
constexpr std::uint32_t kCodePage = 1252;

// A property set of one section; values stand on multiples of four bytes.
class PropertySet {
public:
    PropertySet& shortNumber(std::uint32_t id, std::uint32_t value) { return value32(id, kShortForm, value); }
    PropertySet& integer(std::uint32_t id, std::uint32_t value) { return value32(id, kIntegerForm, value); }
    PropertySet& text(std::uint32_t id, std::string_view text) {
        begin(id);
        const std::size_t size = text.size() + 1;
        _values.u32(kTextForm).u32(static_cast<std::uint32_t>(size)).ascii(text).zeroes(1 + (4 - size % 4) % 4);
        return *this;
    }

    Bytes take(const GuidBytes& format) {
        constexpr std::uint32_t sectionOffset = 48, sectionHead = 8;
        const auto count = static_cast<std::uint32_t>(_offsets.size());
        const std::uint32_t table = sectionHead + 8 * count;
        ByteBuilder stream;
        stream.u16(0xFFFE).u16(0).u32(0x00020105).zeroes(16); // byte order, version, system, no class
        stream.u32(1).bytes(format).u32(sectionOffset);
        stream.u32(table + static_cast<std::uint32_t>(_values.size())).u32(count);
        for (const auto& [id, offset] : _offsets)
            stream.u32(id).u32(table + offset);
        stream.bytes(_values.take());
        return stream.take();
    }

private:
    void begin(std::uint32_t id) { _offsets.emplace_back(id, static_cast<std::uint32_t>(_values.size())); }
    PropertySet& value32(std::uint32_t id, std::uint32_t form, std::uint32_t value) {
        begin(id);
        _values.u32(form).u32(value);
        return *this;
    }

    std::vector<std::pair<std::uint32_t, std::uint32_t>> _offsets; ///< id, offset among the values
    ByteBuilder _values;
};

} // namespace

Bytes compObj() {
    ByteBuilder stream;
    stream.u16(1).u16(0xFFFE).u32(0x0A03).u32(0xFFFFFFFF).bytes(kProjectClass);
    countedText(stream, "Microsoft Project 12.0");
    countedText(stream, "MSProject.MPP12");
    countedText(stream, "MSProject.Project.9");
    stream.u32(0x71B239F4).zeroes(std::size_t{3} * 4); // the texts once more as UTF-16: mark, and none of the three
    return stream.take();
}

Bytes summaryInformation() {
    return PropertySet()
        .shortNumber(1, kCodePage)
        .text(2, "")  // title
        .text(4, "")  // author
        .text(9, "1") // revision
        .text(18, "Microsoft Project")
        .integer(19, 0) // security
        .take(kSummaryFormat);
}

Bytes documentSummaryInformation() {
    return PropertySet()
        .shortNumber(1, kCodePage)
        .text(2, "")  // category
        .text(14, "") // manager
        .text(15, "") // company
        .take(kDocumentSummaryFormat);
}

} // namespace brackwater::layout
