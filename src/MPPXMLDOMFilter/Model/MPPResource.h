#pragma once

#include "MPPXMLDOMFilter/Model/MPPCalendar.h"
#include "MPPXMLDOMFilter/Model/MPPExtendedAttribute.h"
#include "MPPXMLDOMFilter/Model/MPPSourceValues.h"
#include "MPPXMLDOMFilter/Model/RecordReference.h"
#include "Platform/Time/Date.h"
#include "Platform/Values/Guid.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brackwater {

struct MPPResourceBaseline {
    double work = 0; ///< hours
    double cost = 0; ///< whole units
};

/// Totals of a resource's assignments. Work is in hours, money in hundredths.
struct MPPResourceTotals {
    double work = 0;
    double actualWork = 0;
    double remainingWork = 0;
    double cost = 0;
    double actualCost = 0;
    double remainingCost = 0;
};

/// A resource: work, material or cost. The stream writers use the accessors named `get...` and `has...`; those without
/// a field define constants for values that the system does not model.
struct MPPResource {
    /// A work resource with a random GUID.
    MPPResource() : MPPResource(Guid::random()) {}
    explicit MPPResource(const Guid& guid) : _GUID(guid) {}

    std::uint64_t ID = 0; ///< 1 to n after preprocessing
    std::optional<std::string> name;
    std::optional<std::string> initials;
    std::optional<std::string> group;
    std::optional<std::string> code;
    std::optional<std::string> emailAddress;
    std::optional<std::string> notes;
    bool notesAreRtf = false;                  ///< as in a task
    std::vector<std::string> customFieldsText; ///< by position, like a task's customFieldValues
    std::optional<Date> availableFromDate;
    std::optional<Date> availableToDate;
    double maxUnits = 100.0; ///< percent
    double costPerUse = 0.0;
    double standartRate = 0.0;  ///< hourly, or per unit of material
    std::uint16_t rateUnit = 2; ///< 2 per hour, 8 per unit of material
    MPPResourceTotals totals;
    CalendarReference calendar;
    std::optional<std::uint64_t> calendarID; ///< shown in the resource's row; nothing: `ID` plus three
    std::vector<std::shared_ptr<MPPResourceBaseline>> baselines; ///< baselines 1 to 10 after preprocessing
    std::shared_ptr<MPPResourceBaseline> baseline0;              ///< the first baseline

    std::unique_ptr<MPPResourceSource> source; ///< null in an exact export

    /// Custom fields from the mapping; post-processing turns them into `customFieldsText`.
    std::vector<std::shared_ptr<const MPPExtendedAttribute>> extendedAttributes;

    [[nodiscard]] const Guid& GUID() const noexcept { return _GUID; }
    void setGUID(const Guid& guid) noexcept { _GUID = guid; }
    /// 0 work, 1 material or cost.
    [[nodiscard]] std::uint64_t type() const noexcept { return _type; }
    [[nodiscard]] bool isCostType() const noexcept { return _isCostType; }
    [[nodiscard]] bool isCostResource() const noexcept { return _isCostType; }
    void setResourceTypeWork() noexcept { setType(0, false); }
    void setResourceTypeMaterial() noexcept { setType(1, false); }
    void setResourceTypeCost() noexcept { setType(1, true); }

    [[nodiscard]] std::optional<Date> getAvailableFrom() const { return availableFromDate; }
    [[nodiscard]] std::optional<Date> getAvailableTo() const { return availableToDate; }
    [[nodiscard]] std::uint32_t getResourceType() const { return static_cast<std::uint32_t>(_type); }
    [[nodiscard]] std::uint16_t getStandartRateFormatType() const { return rateUnit; }
    [[nodiscard]] std::uint16_t getOvertimeRateFormatType() const { return 2; } ///< hourly
    [[nodiscard]] std::uint16_t getAccrueAtType() const { return 3; }           ///< prorated
    [[nodiscard]] double getStandartRate() const { return standartRate; }
    [[nodiscard]] double getMaxUnits() const { return maxUnits * 100.0; }
    [[nodiscard]] double getCostPerUse() const { return costPerUse * 100.0; }
    [[nodiscard]] double getOverTimeRate() const { return 0.0; }
    [[nodiscard]] double getWork() const { return totals.work; }
    [[nodiscard]] double getActualWork() const { return totals.actualWork; }
    [[nodiscard]] double getOvertimeWork() const { return 0.0; }
    [[nodiscard]] double getRemainingWork() const { return totals.remainingWork; }
    [[nodiscard]] double getRegularWork() const { return totals.work; } ///< no overtime
    [[nodiscard]] double getActualOvertimeWork() const { return 0.0; }
    [[nodiscard]] double getPeakUnits() const { return 0.0; }
    [[nodiscard]] double getActualCost() const { return totals.actualCost; }
    [[nodiscard]] double getCost() const { return totals.cost; }
    [[nodiscard]] double getRemainingCost() const { return totals.remainingCost; }
    [[nodiscard]] double getOvertimeCost() const { return 0.0; }
    [[nodiscard]] double getActualOvertimeCost() const { return 0.0; }
    [[nodiscard]] double getRemainingOvertimeCost() const { return 0.0; }
    [[nodiscard]] bool getBudget() const { return false; }
    /// Presence: an empty string counts.
    [[nodiscard]] bool hasInitials() const { return initials.has_value(); }
    [[nodiscard]] bool hasGroup() const { return group.has_value(); }
    [[nodiscard]] bool hasCode() const { return code.has_value(); }
    [[nodiscard]] bool hasNotes() const { return notes.has_value(); }
    [[nodiscard]] bool hasEmailAddress() const { return emailAddress.has_value(); }
    [[nodiscard]] bool hasWindowsAccount() const { return false; }
    [[nodiscard]] bool hasMaterialLabel() const { return false; }
    [[nodiscard]] bool hasBookingType() const { return false; }
    /// True if the text field at a position, counted from 1, has a non-empty string.
    [[nodiscard]] bool hasCustomFieldText(std::size_t position) const;

    [[nodiscard]] std::string description() const;

private:
    void setType(std::uint64_t type, bool isCost) noexcept {
        _type = type;
        _isCostType = isCost;
    }

    Guid _GUID;
    std::uint64_t _type = 0;
    bool _isCostType = false;
};

} // namespace brackwater
