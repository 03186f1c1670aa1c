#include "PropertySet.h"

#include <fmt/format.h>

#include <algorithm>

namespace brackwater::inspect {

namespace {

constexpr std::size_t kSectionOffsetAt = 44, kSectionHead = 8;
constexpr std::uint32_t kCodePageId = 1;
constexpr std::uint32_t kShort = 2, kInteger = 3, kBoolean = 11, kText = 30, kWideText = 31, kFileTime = 64;
constexpr unsigned kUsualCodePage = 1252;

std::string fileTimeText(std::uint64_t ticks) {
    // 100-nanosecond ticks since 1601; spans such as the editing time stand in the same form.
    return fmt::format("{} s since 1601", ticks / 10'000'000);
}

std::string valueText(ByteView value, unsigned codePage) {
    const auto form = value.u32(0);
    const auto number = value.u32(4);
    if (!form || !number)
        return "(cut off)";
    switch (*form) {
    case kShort:
    case kBoolean:
        return fmt::format("{}", *number & 0xFFFF);
    case kInteger:
        return fmt::format("{}", *value.i32(4));
    case kText:
        return value.part(8, *number).text8(codePage);
    case kWideText:
        return value.part(8, std::size_t{*number} * 2).text16();
    case kFileTime:
        if (const auto high = value.u32(8))
            return fileTimeText(*number | static_cast<std::uint64_t>(*high) << 32);
        return "(cut off)";
    default:
        return fmt::format("(form {})", *form);
    }
}

} // namespace

std::vector<SummaryValue> readPropertySet(ByteView stream, std::string_view where, Complaints& complaints) {
    std::vector<SummaryValue> values;
    const auto sectionOffset = stream.u32(kSectionOffsetAt);
    if (!sectionOffset || *stream.u16(0) != 0xFFFE || *stream.u32(24) == 0) {
        complaints.add(where, "not a property set");
        return values;
    }
    const ByteView section = stream.part(*sectionOffset);
    const auto counted = section.u32(4);
    if (!counted) {
        complaints.add(where, "the section stands outside the stream");
        return values;
    }
    const std::size_t present = (section.size() - kSectionHead) / 8;
    if (*counted > present)
        complaints.add(where, "fewer properties than counted", fmt::format("{} of {}", present, *counted));
    const std::size_t count = std::min<std::size_t>(*counted, present);
    unsigned codePage = kUsualCodePage;
    std::size_t bytesLeft = 4 * stream.size(); // values may share one long text
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t id = *section.u32(kSectionHead + 8 * i), offset = *section.u32(kSectionHead + 8 * i + 4);
        const ByteView value = section.part(offset);
        if (value.empty()) {
            complaints.add(where, "a value stands outside the stream", fmt::format("property {}", id));
            continue;
        }
        if (id == kCodePageId)
            codePage = value.u16(4).value_or(kUsualCodePage);
        values.push_back({id, valueText(value, codePage)});
        if (values.back().text.size() > bytesLeft) {
            complaints.add(where, "values share their bytes: the rest is left out");
            break;
        }
        bytesLeft -= values.back().text.size();
    }
    return values;
}

} // namespace brackwater::inspect
