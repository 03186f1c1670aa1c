#include "Decoders.h"

#include <fmt/format.h>

#include <array>

namespace brackwater::inspect {

namespace {

constexpr RowKind kResources{"TBkndRsc", 0x00020015, {37, 49}, 2};

enum ResourceField : std::uint16_t {
    kId = 0,
    kName = 1,
    kInitials = 2,
    kGroup = 3,
    kMaximumUnits = 4,
    kStandardRate = 6,
    kOvertimeRate = 7,
    kCode = 10,
    kActualCost = 11,
    kCost = 12,
    kWork = 13,
    kActualWork = 14,
    kBaselineWork = 15,
    kBaselineCost = 17,
    kCostPerUse = 18,
    kAccrual = 19,
    kNotes = 20,
    kRemainingCost = 21,
    kRemainingWork = 22,
    kUniqueId = 27,
    kEmail = 35,
    kAvailableFrom = 57,
    kAvailableTo = 58,
    kStandardRateUnits = 70,
    kOvertimeRateUnits = 71,
    kOfTypeWork = 298,
    kMaterialLabel = 299,
    kGuid = 728,
    kPlaceInSheet = 730,
    kOfTypeCost = 735,
};

const FieldNames kNames{
    {kUniqueId, "unique id"},
    {kId, "id"},
    {kName, "name"},
    {kInitials, "initials"},
    {kGroup, "group"},
    {kCode, "code"},
    {kNotes, "notes"},
    {kEmail, "e-mail address"},
    {kMaximumUnits, "maximum units"},
    {kStandardRate, "standard rate"},
    {kOvertimeRate, "overtime rate"},
    {kCostPerUse, "cost per use"},
    {kOfTypeWork, "of type work"},
    {kOfTypeCost, "of type cost"},
};
// Readers look at byte 9, bit 1 of the first record, then at byte 8, bit 4 of the second; bits count from byte 8.
const std::map<std::uint16_t, std::size_t> kFlagBits{{kOfTypeWork, 9}, {kOfTypeCost, 4}};

constexpr std::array<std::uint16_t, kTextFields> kTexts{8,   9,   30,  31,  32,  97,  98,  99,  100, 101,
                                                        225, 226, 227, 228, 229, 230, 231, 232, 233, 234,
                                                        235, 236, 237, 238, 239, 240, 241, 242, 243, 244};

std::map<std::size_t, Baseline> readBaselines(const RowReader& row) {
    std::map<std::size_t, Baseline> baselines;
    const auto add = [&](std::size_t number, std::uint16_t workField, std::uint16_t costField) {
        Baseline baseline;
        baseline.work = row.f64(workField);
        baseline.cost = row.f64(costField);
        const bool isZero = baseline.work.value_or(0) == 0 && baseline.cost.value_or(0) == 0;
        if (!baseline.isEmpty() && !(number == 0 && isZero))
            baselines.emplace(number, baseline);
    };
    add(0, kBaselineWork, kBaselineCost);
    for (std::uint16_t n = 1; n < kBaselines; ++n) {
        const auto work = static_cast<std::uint16_t>(342 + 10 * (n - 1));
        add(n, work, static_cast<std::uint16_t>(work + 1));
    }
    return baselines;
}

ResourceKind kindOf(const RowReader& row) {
    if (row.flag(kOfTypeWork))
        return ResourceKind::Work;
    return row.flag(kOfTypeCost) ? ResourceKind::Cost : ResourceKind::Material;
}

Resource readResource(const RowTable& table, const RawRow& raw, std::uint32_t uniqueId) {
    const RowReader row(table, raw, uniqueId);
    Resource resource;
    resource.row = raw.number;
    resource.uniqueId = uniqueId;
    resource.id = row.u32(kId).value_or(0);
    resource.kind = kindOf(row);
    resource.name = row.text(kName);
    resource.initials = row.text(kInitials);
    resource.group = row.text(kGroup);
    resource.code = row.text(kCode);
    resource.email = row.text(kEmail);
    resource.notes = row.note(kNotes);
    resource.materialLabel = row.text(kMaterialLabel);
    resource.standardRate = row.f64(kStandardRate).value_or(0);
    resource.overtimeRate = row.f64(kOvertimeRate).value_or(0);
    resource.standardRateUnits = row.u16(kStandardRateUnits).value_or(0);
    resource.overtimeRateUnits = row.u16(kOvertimeRateUnits).value_or(0);
    resource.costPerUse = row.f64(kCostPerUse).value_or(0);
    resource.maximumUnits = row.f64(kMaximumUnits).value_or(0);
    resource.accrual = row.u16(kAccrual).value_or(0);
    resource.availableFrom = row.date(kAvailableFrom);
    resource.availableTo = row.date(kAvailableTo);
    resource.work = row.f64(kWork).value_or(0);
    resource.actualWork = row.f64(kActualWork).value_or(0);
    resource.remainingWork = row.f64(kRemainingWork).value_or(0);
    resource.cost = row.f64(kCost).value_or(0);
    resource.actualCost = row.f64(kActualCost).value_or(0);
    resource.remainingCost = row.f64(kRemainingCost).value_or(0);
    resource.baselines = readBaselines(row);
    resource.texts = readTexts(row, kTexts);
    resource.guid = row.guid(kGuid);
    resource.placeInSheet = row.f64(kPlaceInSheet);
    return resource;
}

// A resource's calendar is the one that names the resource.
void findCalendars(std::vector<Resource>& resources, const std::vector<Calendar>& calendars, Complaints& complaints) {
    std::map<std::uint32_t, std::uint32_t> byResource;
    for (const Calendar& calendar : calendars)
        if (calendar.resourceId && !byResource.try_emplace(*calendar.resourceId, calendar.id).second)
            complaints.add("TBkndCal", "two calendars name the same resource",
                           fmt::format("resource {}", *calendar.resourceId));
    for (Resource& resource : resources)
        if (const auto found = byResource.find(resource.uniqueId); found != byResource.end())
            resource.calendarId = found->second;
}

} // namespace

void decodeResources(const DecodeContext& context) {
    const RowStreams streams = readStreams(context, kResources.storage);
    const RowTable table = readTable(context, kResources, streams);
    Complaints& complaints = context.complaints();
    checkMap(table, kNames, kFlagBits, complaints);
    std::vector<Resource>& resources = context.out.resources;
    for (const RawRow& raw : table.rows) {
        if (isHeaderRow(raw) || isDeleted(raw) || raw.first.empty() ||
            !fitsMap(table, raw, ShortRow::Dropped, complaints))
            continue;
        const auto uniqueId = RowReader(table, raw).u32(kUniqueId);
        if (!uniqueId)
            continue;
        // The default row, which has no elements in real files, stands for work without a resource.
        if (*uniqueId != 0 && table.var.elementsOf(*uniqueId).empty())
            complaints.add(kResources.storage, "a resource without elements in Var2Data: readers drop it",
                           rowName(raw));
        resources.push_back(readResource(table, raw, *uniqueId));
    }
    table.var.checkOwners(checkIds(resources, &Resource::uniqueId, kResources.storage, complaints), kResources.storage,
                          complaints);
    findCalendars(resources, context.out.calendars, complaints);
    context.out.resourceTextNames = readTextNames(streams, kResources.storage, kTexts, complaints);
}

} // namespace brackwater::inspect
