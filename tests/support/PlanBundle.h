#pragma once

#include "support/TempFolder.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater::test {

/// A scenario in the source format with one top group and one task of this title.
[[nodiscard]] std::string scenarioText(std::string_view title);

/// Builds a bundle's table of contents. By default it lists one scenario "s1" in "plan.xml", and a window edits it.
struct TableOfContents {
    struct Scenario {
        std::optional<std::string> id;
        std::optional<std::string> filename;
        std::optional<std::string> name;
    };
    struct Window {
        std::optional<std::string> editing;
        std::optional<std::string> comparison = std::nullopt;
    };

    bool hasProject = true;
    std::vector<Scenario> scenarios = {{"s1", "plan.xml", "Actual"}};
    std::vector<Window> windows = {{"s1"}};

    [[nodiscard]] std::string text() const;
};

/// Writes a bundle with this table of contents and a "plan.xml", and returns its path.
std::string writeBundle(const TempFolder& folder, std::string_view name, const TableOfContents& contents = {});

} // namespace brackwater::test
