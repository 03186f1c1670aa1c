#pragma once

#include "loss-report/SourcePlan.h"

#include "mppinspect/ProjectFile.h"

#include <span>
#include <unordered_set>

namespace brackwater::lossreport {

/// A task of the document and its row; the top task's is the project's own if it has no other.
struct TaskPair {
    const SourceTask* source = nullptr;
    const inspect::Task* file = nullptr; ///< null if it is not in the file
    bool isTop = false;
};

/// A resource of the document and its row.
struct ResourcePair {
    const SourceResource* source = nullptr;
    const inspect::Resource* file = nullptr;          ///< null for groups, and if it is not in the file
    std::optional<std::size_t> parent = std::nullopt; ///< index in the list of pairs
};

/// Matches records of the file with those of the document: rows are in the order of the document's trees.
class PlanMatch {
public:
    PlanMatch(const SourcePlan& plan, const inspect::ProjectFile& file);

    /// In tree order, the top task first.
    [[nodiscard]] const std::vector<TaskPair>& tasks() const noexcept { return _tasks; }
    /// Including groups, the top resource first.
    [[nodiscard]] const std::vector<ResourcePair>& resources() const noexcept { return _resources; }
    /// Whether the top task has its own row beside the project's.
    [[nodiscard]] bool hasTopTaskRow() const noexcept { return _hasTopTaskRow; }
    /// By the document's id; null if it is not in the tree.
    [[nodiscard]] const TaskPair* task(std::string_view id) const;
    [[nodiscard]] const ResourcePair* resource(std::string_view id) const;

    /// For a resource of the file.
    [[nodiscard]] bool isMaterial(std::uint32_t resource) const { return _materials.contains(resource); }
    [[nodiscard]] std::span<const inspect::Assignment* const> assignmentsOf(std::uint32_t task) const;
    [[nodiscard]] std::span<const inspect::Link* const> links(std::uint32_t predecessor, std::uint32_t successor) const;
    [[nodiscard]] const inspect::Calendar* calendar(std::uint32_t id) const;

private:
    void walkTasks(const SourceScenario& scenario);
    void walkResources(const SourceScenario& scenario);
    void pairTasks(const inspect::ProjectFile& file);
    void pairResources(const inspect::ProjectFile& file);

    std::vector<TaskPair> _tasks;
    std::vector<ResourcePair> _resources;
    bool _hasTopTaskRow = false;
    std::unordered_map<std::string_view, std::size_t> _taskPlaces, _resourcePlaces;
    std::vector<const inspect::Assignment*> _assignments; ///< sorted by task
    std::vector<const inspect::Link*> _links;             ///< sorted by successor and predecessor
    std::unordered_map<std::uint32_t, const inspect::Calendar*> _calendars;
    std::unordered_set<std::uint32_t> _materials;
};

} // namespace brackwater::lossreport
