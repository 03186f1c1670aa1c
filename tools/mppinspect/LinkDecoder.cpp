#include "Decoders.h"

#include <fmt/format.h>

#include <set>

namespace brackwater::inspect {

namespace {

constexpr RowKind kLinks{"TBkndCons", 0x00020018, {10, 9}, 5};
constexpr std::size_t kRowSize = 20, kPredecessorAt = 4, kSuccessorAt = 8, kTypeAt = 12, kUnitsAt = 14, kLagAt = 16;

// Readers take links at fixed offsets; a map that tells others misleads nobody but shows that the rows differ.
void checkLinkMap(const DecodeContext& context) {
    enum LinkField : std::uint16_t { kId = 0, kPredecessor = 2, kSuccessor = 5, kType = 7, kLag = 9, kLagUnits = 10 };
    const Property* property = context.props.find(kLinks.mapType);
    if (property == nullptr)
        return;
    const FieldMap map(property->payload, fmt::format("Props/0x{:08X}", kLinks.mapType), context.complaints());
    const std::map<std::uint16_t, std::size_t> expected{
        {kId, 0},         {kPredecessor, kPredecessorAt}, {kSuccessor, kSuccessorAt},
        {kType, kTypeAt}, {kLagUnits, kUnitsAt},          {kLag, kLagAt}};
    for (const auto& [field, offset] : expected) {
        const FieldPlace* place = map.find(field);
        if (place == nullptr || place->where != FieldPlace::Where::FirstBlock || place->offset != offset)
            context.complaints().add(kLinks.storage, "the field map has a field elsewhere than readers look for it",
                                     fmt::format("field {}", field));
    }
}

void checkLink(const Link& link, const std::set<std::uint32_t>& tasks, const Outline& outline, Complaints& complaints) {
    const std::string name = fmt::format("link {} from {} to {}", link.id, link.predecessor, link.successor);
    const auto complain = [&](std::string_view what) { complaints.add(kLinks.storage, what, name); };
    if (link.predecessor == link.successor)
        complain("a link from a task to itself: readers drop it");
    else if (link.predecessor == 0 || link.successor == 0)
        complain("a link to the project's row: readers drop it");
    else if (!tasks.contains(link.predecessor) || !tasks.contains(link.successor))
        complain("a link to a task that is missing: readers drop it");
    else if (outline.isAncestor(link.predecessor, link.successor))
        complain("a link from a task above: readers drop it");
}

} // namespace

void decodeLinks(const DecodeContext& context) {
    const RowStreams streams = readStreams(context, kLinks.storage);
    Complaints& complaints = context.complaints();
    checkLinkMap(context);
    for (const RawRow& raw : readRows(streams, kLinks.records, kLinks.storage, complaints)) {
        if (isHeaderRow(raw) || isDeleted(raw) || raw.first.empty())
            continue;
        if (raw.first.size() < kRowSize) {
            complaints.add(kLinks.storage, "a row is shorter than a link", rowName(raw));
            continue;
        }
        Link link;
        link.row = raw.number;
        link.id = *raw.first.u32(0);
        link.predecessor = *raw.first.u32(kPredecessorAt);
        link.successor = *raw.first.u32(kSuccessorAt);
        link.type = *raw.first.u16(kTypeAt);
        link.lag = {*raw.first.i32(kLagAt), *raw.first.u16(kUnitsAt)};
        link.guid = raw.second.guid(0);
        context.out.links.push_back(link);
    }
    checkIds(context.out.links, &Link::id, kLinks.storage, complaints);
    std::set<std::uint32_t> tasks;
    for (const Task& task : context.out.tasks)
        tasks.insert(task.uniqueId);
    const Outline outline(context.out.tasks);
    for (const Link& link : context.out.links)
        checkLink(link, tasks, outline, complaints);
}

} // namespace brackwater::inspect
