#include "loss-report/Comparison.h"

#include <fmt/format.h>

#include <algorithm>

namespace brackwater::lossreport {

namespace {

constexpr double kWholeUnits = 10'000;

Subject subjectOf(const SourceResource& resource) { return {"resource", resource.id, resource.name}; }

/// Compares the resources one by one.
class ResourceComparison {
public:
    explicit ResourceComparison(Comparison& comparison) : _comparison(comparison) {}

    void run() {
        for (const ResourcePair& pair : _comparison.match.resources())
            if (pair.source->isGroup())
                tellOfGroup(*pair.source);
            else if (!pair.source->isWorker())
                _comparison.add(subjectOf(*pair.source), Kind::ResourceType, "resource", std::string(pair.source->type),
                                "");
            else if (pair.file == nullptr)
                _comparison.add(subjectOf(*pair.source), Kind::Unexplained, "resource", std::string(pair.source->name),
                                "");
            else
                compare(pair);
        for (const SourceResource& resource : _comparison.plan.main.resources)
            if (_comparison.match.resource(resource.id) == nullptr)
                _comparison.add(subjectOf(resource), Kind::Unreached, "resource", std::string(resource.name), "");
    }

private:
    // The file keeps the name of a group with its members.
    void tellOfGroup(const SourceResource& group) {
        const auto lost = [&](std::string_view field, std::string value) {
            _comparison.add(subjectOf(group), Kind::GroupData, field, std::move(value), "");
        };
        const auto lostNumber = [&](std::string_view field, const std::optional<double>& value) {
            if (value)
                lost(field, inspect::numberText(*value));
        };
        lostNumber("units available", group.units);
        lostNumber("cost per use", group.costPerUse);
        lostNumber("cost per hour", group.costPerHour);
        if (!group.email.empty())
            lost("e-mail address", std::string(group.email));
        if (group.note && !group.note->paragraphs.empty())
            lost("note", group.note->paragraphs.front());
        for (const auto& [key, value] : group.fields)
            lost(key, std::string(value));
        tellOfEfficiency(group);
    }

    void tellOfEfficiency(const SourceResource& resource) {
        if (resource.efficiency.value_or(1) != 1)
            _comparison.add(subjectOf(resource), Kind::Efficiency, "efficiency",
                            inspect::numberText(*resource.efficiency), "");
    }

    void compare(const ResourcePair& pair) {
        const SourceResource& source = *pair.source;
        const inspect::Resource& file = *pair.file;
        const Subject subject = subjectOf(source);
        _comparison.text(subject, "name", source.name, file.name);
        _comparison.text(subject, "e-mail address", source.email, file.email);
        _comparison.note(subject, source.note, file.notes);
        _comparison.fields(subject, source.fields, file.texts, _comparison.file.resourceTextNames);
        _comparison.number(subject, "units available", source.units.value_or(1), file.maximumUnits, kWholeUnits);
        _comparison.number(subject, "cost per use", source.costPerUse.value_or(0), file.costPerUse, 100);
        _comparison.number(subject, "cost per hour", source.costPerHour.value_or(0), file.standardRate, 1);
        tellOfEfficiency(source);
        compareType(subject, source, file);
        compareGroup(subject, pair);
        compareBaseline(subject, source, file);
    }

    void compareType(const Subject& subject, const SourceResource& source, const inspect::Resource& file) {
        const auto kind = source.isMaterial() ? inspect::ResourceKind::Material : inspect::ResourceKind::Work;
        if (file.kind != kind)
            _comparison.add(subject, Kind::Unexplained, "type", std::string(source.type), kindText(file.kind));
        else if (source.type == "Equipment")
            _comparison.add(subject, Kind::Equipment, "type", "Equipment", kindText(file.kind));
    }

    // The names of the groups from the outermost in.
    void compareGroup(const Subject& subject, const ResourcePair& pair) {
        std::string path;
        bool hasNameless = false;
        for (auto place = pair.parent; place;) {
            const ResourcePair& group = _comparison.match.resources()[*place];
            if (!group.source->name.empty())
                path.insert(0, path.empty() ? "" : "/").insert(0, group.source->name);
            else
                hasNameless = hasNameless || group.parent;
            place = group.parent;
        }
        _comparison.text(subject, "groups", path, pair.file->group, hasNameless ? Kind::GroupName : Kind::Unexplained);
    }

    void compareBaseline(const Subject& subject, const SourceResource& source, const inspect::Resource& file) {
        const auto effort = _comparison.baselineEfforts.find(source.id);
        if (effort == _comparison.baselineEfforts.end())
            return;
        const auto found = file.baselines.find(0);
        const double inFile = found == file.baselines.end() ? 0 : found->second.work.value_or(0);
        _comparison.work(subject, "baseline work", effort->second, inFile, Kind::BaselineResource);
    }

    Comparison& _comparison;
};

} // namespace

void compareResources(Comparison& comparison) { ResourceComparison(comparison).run(); }

} // namespace brackwater::lossreport
