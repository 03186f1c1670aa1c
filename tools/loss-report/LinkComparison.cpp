#include "loss-report/TaskParts.h"

#include <fmt/format.h>

#include <cmath>

namespace brackwater::lossreport {

namespace {

constexpr std::uint16_t kFinishFinish = 0, kFinishStart = 1, kStartFinish = 2, kStartStart = 3;

std::uint16_t typeOf(std::string_view kind) {
    if (kind == "SF")
        return kStartFinish;
    if (kind == "SS")
        return kStartStart;
    return kind == "FF" ? kFinishFinish : kFinishStart;
}

/// Compares the links to one task.
class LinkComparison {
public:
    LinkComparison(Comparison& comparison, const TaskPair& successor)
        : _comparison(comparison), _successor(successor), _subject(subjectOf(*successor.source)) {}

    void compare(const SourceLink& link) {
        const std::string name = fmt::format("link from {}", link.predecessor.value_or("nowhere"));
        if (link.isExternal)
            _comparison.add(_subject, Kind::LinkOrigin, name, "to another document", "within the plan");
        if (link.isResourceDependency)
            _comparison.add(_subject, Kind::LinkOrigin, name, "since they share a resource", "an ordinary link");
        const TaskPair* predecessor = link.predecessor ? _comparison.match.task(*link.predecessor) : nullptr;
        if (predecessor == nullptr || predecessor->file == nullptr)
            return _comparison.add(_subject, Kind::LinkLeftOut, name, std::string(link.kind), "");
        if (predecessor->file->uniqueId == 0 || _successor.file->uniqueId == 0)
            return _comparison.add(_subject, Kind::LinkToTopTask, name, std::string(link.kind), "");
        const auto found = _comparison.match.links(predecessor->file->uniqueId, _successor.file->uniqueId);
        const std::size_t turn = _turns[predecessor->file->uniqueId]++;
        if (turn >= found.size())
            return _comparison.add(_subject, Kind::Unexplained, name, std::string(link.kind), "");
        compareValues(name, link, *found[turn]);
    }

private:
    void compareValues(const std::string& name, const SourceLink& source, const inspect::Link& file) {
        if (file.type != typeOf(source.kind))
            _comparison.add(_subject, Kind::Unexplained, name, std::string(source.kind),
                            inspect::linkTypeText(file.type));
        const bool isPercentage = inspect::isPercentage(file.lag);
        const double scale = source.isPercentage ? 100 : 1.0 / 6;
        const double lacking = source.lead * scale - file.lag.tenths;
        constexpr double ofArithmetic = 1e-6;
        if ((source.isPercentage == isPercentage || source.lead == 0) && std::abs(lacking) < ofArithmetic)
            return;
        const bool isCut = source.isPercentage == isPercentage && std::abs(lacking) < 1;
        _comparison.add(_subject, isCut ? Kind::LinkLag : Kind::Unexplained, name + ", lag",
                        source.isPercentage ? inspect::numberText(source.lead * 100) + " %" : hoursText(source.lead),
                        isPercentage ? fmt::format("{} %", file.lag.tenths) : hoursText(6.0 * file.lag.tenths));
    }

    Comparison& _comparison;
    const TaskPair& _successor;
    Subject _subject;
    std::unordered_map<std::uint32_t, std::size_t> _turns; ///< links found so far for each predecessor
};

} // namespace

void compareLinks(Comparison& comparison, const TaskPair& pair) {
    LinkComparison links(comparison, pair);
    for (const SourceLink& link : pair.source->links)
        links.compare(link);
}

} // namespace brackwater::lossreport
