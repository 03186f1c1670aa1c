#pragma once

#include "support/TempFolder.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater::test {

/// A scenario of one top group and one task of this title, as the source format has it.
[[nodiscard]] std::string scenarioText(std::string_view title);

/// Builds a bundle's table of contents. By default it names one scenario "s1" in "plan.xml", and a window edits it.
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

/// Writes a bundle with this table of contents, and "plan.xml" in it, and gives its path.
std::string writeBundle(const TempFolder& folder, std::string_view name, const TableOfContents& contents = {});

} // namespace brackwater::test
