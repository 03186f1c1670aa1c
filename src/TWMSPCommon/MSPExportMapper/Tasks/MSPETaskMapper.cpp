#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskMapper.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLBaselineAdapters.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLExtendedAttributeAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLNotesAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLPredecessorLinkAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLTaskAdapter.h"
#include "Platform/Log/Log.h"
#include "Platform/Values/Exception.h"
#include "Platform/Values/Saturating.h"
#include "TWMSPCommon/MSPExportMapper/Baselines/MSPEBaselineMappers.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEChildElements.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPENoteMapper.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEUserDataMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEIdMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEProjectMapper.h"
#include "TWMSPCommon/MSPExportMapper/Source/MSPESourceLists.h"
#include "TWMSPCommon/MSPExportMapper/Source/MSPESourceValues.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPEScheduledTaskInfo.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskConstraint.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskDates.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include <fmt/format.h>

namespace brackwater {

namespace {

using Info = MSPEScheduledTaskInfo;

enum class Child : std::size_t { Title, Recalculate, StaticCost, Splittable, Note, UserData };

constexpr NameTable kChildNames(std::array<std::string_view, 6>{"title", "recalculate", "static-cost", "splittable",
                                                                "note", "user-data"});

using Children = MSPEChildElements<Child, kChildNames.size()>;

constexpr std::string_view kYes = "1";
constexpr std::string_view kNo = "0";

constexpr std::string_view flag(bool value) { return value ? kYes : kNo; }

// The target's task types.
constexpr std::string_view kFixedUnits = "0";
constexpr std::string_view kFixedDuration = "1";
constexpr std::string_view kFixedWork = "2";

constexpr std::string_view kPercentLagFormat = "19";
// A lag counts in tenths of a minute.
constexpr double kSecondsOfLagUnit = 6.0;

constexpr std::int64_t kMiddlePriority = 500;
constexpr std::int64_t kHighestPriority = 1000;

// How the source recalculates the task, in the target's terms.
struct TypeOfTask {
    std::optional<std::string_view> type;
    bool mayBeEffortDriven;
    std::optional<Info::Recalculate> code; ///< the required value of the parsed task; nothing if it does not matter
};

TypeOfTask typeFromRecalculate(std::optional<std::string_view> recalculate) {
    if (!recalculate || recalculate == "duration")
        return {kFixedUnits, true, Info::Recalculate::Duration};
    if (recalculate == "units")
        return {kFixedWork, true, Info::Recalculate::Units};
    if (recalculate == "effort")
        return {kFixedDuration, false, Info::Recalculate::Effort};
    if (recalculate == "something_else")
        return {std::nullopt, false, std::nullopt};
    failAssertion("zelbRecalculate is undefined");
}

// Scales the document's range of priorities to 0 to 1000. Intermediate values exceed 64 bits.
std::int64_t stretchedPriority(std::int64_t priority, std::int64_t lowest, std::int64_t highest) {
    if (lowest >= highest)
        return kMiddlePriority;
    __extension__ using Wide = __int128;
    const Wide stretched =
        (static_cast<Wide>(priority) - lowest) * kHighestPriority / (static_cast<Wide>(highest) - lowest);
    return static_cast<std::int64_t>(stretched);
}

std::string_view linkType(Info::LinkKind kind) {
    switch (kind) {
    case Info::LinkKind::FinishFinish:
        return "0";
    case Info::LinkKind::StartFinish:
        return "2";
    case Info::LinkKind::StartStart:
        return "3";
    case Info::LinkKind::FinishStart:
        break;
    }
    return "1";
}

// The text is a valid false.
bool isClearlyFalse(const Children& children, Child name) {
    const auto text = children.onlyText(name);
    if (!text)
        return false;
    Error error;
    const bool value = MSPCBoolValueFromString(*text, &error);
    return !error && !value;
}

// The steps of one task, in the order of the element's children.
class TaskBuilder {
public:
    TaskBuilder(MSPEMapper* mapper, XMLElement zelbTask, std::string id)
        : _mapper(mapper), _projectMapper(MSPEProjectMapper::ofMapper(mapper)), _zelbTask(zelbTask),
          _children(zelbTask, kChildNames), _id(std::move(id)) {}

    void logStart(bool isTopTask) const {
        if (isTopTask)
            logLine("  Mapping Top Task id='{}' ...", _id);
        else
            logLine("  Mapping Task id='{}' name='{}' ...", _id, _children.text(Child::Title).value_or(""));
    }

    std::shared_ptr<MSPEXMLTaskAdapter> build() {
        _task = std::make_shared<MSPEXMLTaskAdapter>("Task", _mapper);
        addIdentity();
        _info = &_projectMapper.scheduledTaskWithId(_id);
        addNameAndType();
        addFigures();
        addProgress();
        addConstraint();
        add("LevelingCanSplit", flag(!isClearlyFalse(_children, Child::Splittable)));
        add("IgnoreResourceCalendar", kYes);
        addNotes();
        for (const auto& prerequisite : _info->prerequisites())
            addLink(prerequisite);
        addUserData();
        add("Active", kYes);
        add("Manual", kNo);
        addBaselines();
        if (_mapper->keepsSource())
            keepSource();
        return std::move(_task);
    }

private:
    void add(std::string_view name, ElementText text) { _task->addChildElementWithName(name, text); }

    void addIdentity() {
        _uid = _mapper->idMapper()->taskUIDFromZelbId(_id);
        const std::int64_t number = MSPEMapper::nextTaskID();
        add("UID", _uid);
        add("ID", std::to_string(number));
        assertThat(_projectMapper.registerTask(_uid, number), "Duplicated Task UID='{}' found (zelb Task id='{}').",
                   _uid, _id);
    }

    void addNameAndType() {
        if (const auto title = _children.text(Child::Title))
            add("Name", stringByReplacingOccurrencesOfNewline(*title));
        const TypeOfTask type = typeFromRecalculate(_children.text(Child::Recalculate));
        assertThat(!type.code || *type.code == _info->recalculate(),
                   "Unexpected task recalculate value ({}) in task info.",
                   static_cast<std::int32_t>(_info->recalculate()));
        if (type.type)
            add("Type", *type.type);
        _isEffortDriven = type.mayBeEffortDriven && _info->taskType() == Info::TaskType::Task;
    }

    void addFigures() {
        add("IsNull", kNo);
        add("Priority", std::to_string(stretchedPriority(_info->priority(), _projectMapper.minTaskPriority(),
                                                         _projectMapper.maxTaskPriority())));
        const MSPETaskDates& dates = _projectMapper.datesOfTask(*_info);
        add("Start", dates.mspdiStart);
        add("Finish", dates.mspdiFinish);
        add("Duration", MSPIUtilities::mppToMspdiDuration(_info->duration()));
        add("Work", MSPIUtilities::mppToMspdiDuration(_info->effort()));
        add("EffortDriven", flag(_isEffortDriven));
        // Amounts of money are in hundredths.
        if (const auto cost = _children.onlyNumber(Child::StaticCost))
            add("FixedCost", fmt::format("{:.2f}", *cost * 100));
        add("Estimated", kNo);
        add("Milestone", flag(_info->taskType() == Info::TaskType::Milestone));
        add("Summary", flag(_info->taskType() == Info::TaskType::Group));
    }

    void addProgress() {
        const std::int32_t percent = _info->percentComplete();
        if (percent <= 0)
            return;
        const std::string text = std::to_string(percent);
        add("PercentComplete", text);
        add("PercentWorkComplete", text);
    }

    void addConstraint() {
        const auto constraint = MSPETaskConstraint::ofTask(*_info, _projectMapper.scheduleFromStart());
        if (!constraint)
            return;
        add("ConstraintType", std::to_string(static_cast<int>(constraint->type)));
        if (constraint->hasDate)
            add("ConstraintDate", mspdiTextOfDate(constraint->date));
    }

    void addNotes() {
        const auto note = _children.last(Child::Note);
        if (!note)
            return;
        if (const auto notes = MSPENoteMapper().newNotesFromZELBNote(*note))
            _task->addChild(notes);
    }

    void addLink(const Info::Prerequisite& prerequisite) {
        const auto link =
            std::dynamic_pointer_cast<MSPEXMLPredecessorLinkAdapter>(_task->addChildElementWithName("PredecessorLink"));
        const auto& record = link->mppDomObject();
        record->task2.setProxyText(_uid);
        _mapper->addConstraint(record);

        if (prerequisite.predecessorId)
            link->addChildElementWithName("PredecessorUID",
                                          _mapper->idMapper()->taskUIDFromZelbId(*prerequisite.predecessorId));
        link->addChildElementWithName("Type", linkType(prerequisite.kind));
        addLag(*link, prerequisite);
    }

    static void addLag(MSPEXMLPredecessorLinkAdapter& link, const Info::Prerequisite& prerequisite) {
        if (prerequisite.lead == 0)
            return;
        const double lag = prerequisite.leadIsPercent ? prerequisite.lead * 100 : prerequisite.lead / kSecondsOfLagUnit;
        link.addChildElementWithName("LinkLag", std::to_string(saturatingCut<std::int64_t>(lag)));
        if (prerequisite.leadIsPercent)
            link.addChildElementWithName("LagFormat", kPercentLagFormat);
    }

    void addUserData() {
        const auto userData = _children.last(Child::UserData);
        if (!userData)
            return;
        for (const auto& attribute : MSPEUserDataMapper(_mapper, true).newExtendedAttributesFromUserData(*userData))
            _task->addChild(attribute);
    }

    void addBaselines() {
        const std::size_t count = _mapper->zelbBaselines().size();
        if (count == 0)
            return;
        logLine("  Mapping {} baselines for Task ...", count);
        for (std::size_t number = 0; number < count; ++number)
            if (const auto baseline =
                    MSPETaskBaselineMapper(number, _mapper).newBaselineFromZelbTask(_zelbTask, _sourceBaseline))
                _task->addChild(baseline);
    }

    void keepSource() {
        auto source = sourceOfTask(*_info, _projectMapper.scheduleFromStart());
        source->isEffortDriven = _isEffortDriven;
        source->baseline = std::move(_sourceBaseline);
        source->fields = sourceFields(_zelbTask);
        source->segments = sourceSegments(_projectMapper, _zelbTask);
        _task->mppDomObject()->source = std::move(source);
    }

    MSPEMapper* _mapper;
    MSPEProjectMapper& _projectMapper;
    XMLElement _zelbTask;
    Children _children;
    std::string _id;
    std::string _uid;
    const MSPEScheduledTaskInfo* _info = nullptr;
    bool _isEffortDriven = false;
    std::optional<MPPSourceTaskBaseline> _sourceBaseline; ///< of the first baseline, if sources are kept
    std::shared_ptr<MSPEXMLTaskAdapter> _task;
};

} // namespace

std::shared_ptr<MSPEXMLTaskAdapter> MSPETaskMapper::newTaskFromZELBTask(std::optional<XMLElement> zelbTask,
                                                                        std::optional<XMLElement> parentTask) const {
    auto id = zelbTask ? zelbTask->attributeForName("id") : std::nullopt;
    assertThat(id.has_value(), "Task <{}> has no 'id' attribute.",
               static_cast<const void*>(zelbTask ? zelbTask->node() : nullptr));
    TaskBuilder builder(mapper(), *zelbTask, std::move(*id));
    builder.logStart(!parentTask);
    return builder.build();
}

} // namespace brackwater
