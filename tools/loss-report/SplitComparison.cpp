#include "loss-report/TaskParts.h"

#include <fmt/format.h>

#include <algorithm>

namespace brackwater::lossreport {

namespace {

/// Working periods of a task, in local seconds.
using Bars = std::vector<std::pair<std::int64_t, std::int64_t>>;

constexpr std::int64_t kRounding = 60; ///< the file counts its moments in tenths of a minute from gap to gap

bool isClose(std::int64_t one, std::int64_t other) { return one - other <= kRounding && other - one <= kRounding; }

bool isSame(const Bars& one, const Bars& other) {
    return std::ranges::equal(one, other, [](const auto& left, const auto& right) {
        return isClose(left.first, right.first) && isClose(left.second, right.second);
    });
}

std::string textOf(const Bars& bars) {
    std::string text;
    for (const auto& [start, end] : bars)
        text += fmt::format("{}{} to {}", text.empty() ? "" : ", ", WallTime{start}.text(), WallTime{end}.text());
    return text;
}

Bars barsOf(const Comparison& comparison, const SourceTask& task) {
    Bars bars;
    for (const std::string_view id : task.children) {
        const SourceTask* segment = comparison.plan.main.task(id);
        const auto start = segment == nullptr ? std::nullopt : comparison.wallTime(segment->start);
        const auto end = segment == nullptr ? std::nullopt : comparison.wallTime(segment->end);
        if (start && end)
            bars.emplace_back(start->seconds, end->seconds);
    }
    return bars;
}

Bars barsOf(const inspect::Task& task) {
    Bars bars;
    for (const inspect::Piece& piece : task.pieces)
        bars.emplace_back(wallTimeOf(piece.start).seconds, wallTimeOf(piece.finish).seconds);
    if (bars.empty() && task.start && task.finish)
        bars.emplace_back(wallTimeOf(*task.start).seconds, wallTimeOf(*task.finish).seconds);
    return bars;
}

void tellOfSegment(Comparison& comparison, const SourceTask& segment) {
    const Subject subject = subjectOf(segment);
    if (!segment.title.empty())
        comparison.add(subject, Kind::Segment, "title", std::string(segment.title), "");
    if (segment.note && !segment.note->paragraphs.empty())
        comparison.add(subject, Kind::Segment, "note", segment.note->paragraphs.front(), "");
    for (const auto& [key, value] : segment.fields)
        comparison.add(subject, Kind::Segment, key, std::string(value), "");
}

} // namespace

double durationWithoutPauses(const Comparison& comparison, const TaskPair& pair) {
    double duration = 0;
    if (pair.source->isSplit && !pair.file->pieces.empty())
        for (const std::string_view id : pair.source->children)
            if (const SourceTask* segment = comparison.plan.main.task(id))
                duration += segment->duration;
    return duration > 0 ? duration : pair.source->duration;
}

void compareSegments(Comparison& comparison, const TaskPair& pair) {
    const SourceTask& task = *pair.source;
    if (!task.isSplit)
        return;
    const Bars source = barsOf(comparison, task), inFile = barsOf(*pair.file);
    if (!source.empty() && !isSame(source, inFile))
        comparison.add(subjectOf(task), Kind::Split, "pieces", textOf(source), textOf(inFile));
    for (const std::string_view id : task.children)
        if (const SourceTask* segment = comparison.plan.main.task(id))
            tellOfSegment(comparison, *segment);
}

} // namespace brackwater::lossreport
