#include "loss-report/LossKinds.h"
#include "loss-report/LossReport.h"

#include "mppinspect/TextOutput.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

namespace brackwater::lossreport {

namespace {

constexpr std::size_t kLongestValue = 60; ///< bytes of a value on its line

// Characters that write from right to left, or change the order of others.
bool turnsOrder(char32_t c) {
    return c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

bool isHarmful(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || turnsOrder(c) || c == 0x2028 || c == 0x2029 || c == 0xFEFF;
}

char32_t codeOf(std::string_view character) {
    const auto first = static_cast<unsigned char>(character.front());
    if (character.size() == 1)
        return first;
    char32_t code = first & (0x7FU >> character.size());
    for (const char byte : character.substr(1))
        code = code << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
    return code;
}

/// The text made safe to show, truncated if it is long.
std::string shown(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        if (out.size() >= kLongestValue)
            return out + "...";
        const std::size_t size = inspect::characterSize(text);
        const std::string_view character = text.substr(0, std::max<std::size_t>(size, 1));
        const char32_t code = size == 0 ? 0xFFFD : codeOf(character);
        if (size == 0)
            out += "\xEF\xBF\xBD";
        else if (isHarmful(code))
            out += fmt::format("\\u{:04x}", static_cast<unsigned>(code));
        else
            out += character;
        text.remove_prefix(character.size());
    }
    return out;
}

std::string lineOf(const Loss& loss) {
    std::string line = "  " + loss.object;
    for (const std::string* part : {&loss.id, &loss.name})
        if (!part->empty())
            line += " " + (part == &loss.name ? "'" + shown(*part) + "'" : shown(*part));
    line += fmt::format(", {}: '{}'", shown(loss.field), shown(loss.source));
    line += loss.file.empty() ? " is missing" : fmt::format(" is '{}'", shown(loss.file));
    return line + "\n";
}

std::string valuesText(std::size_t count) { return fmt::format("{} {}", count, count == 1 ? "value" : "values"); }

/// The losses of a kind, and how many of them have their own line.
struct Group {
    std::vector<const Loss*> losses;
    std::size_t lines = 0;
};

/// Distributes lines among the groups in turn, so that a long one hides no other.
void shareOut(std::map<std::string_view, Group>& groups, std::size_t lines) {
    for (bool isGiven = true; isGiven;) {
        isGiven = false;
        for (auto& [kind, group] : groups) {
            if (lines == 0 || group.lines == group.losses.size())
                continue;
            ++group.lines;
            --lines;
            isGiven = true;
        }
    }
}

} // namespace

std::string textOfLosses(const LossReport& report, std::size_t mostLines) {
    std::map<std::string_view, Group> groups;
    for (const Loss& loss : report.losses)
        groups[loss.kind].losses.push_back(&loss);
    if (groups.size() <= mostLines)
        shareOut(groups, mostLines - groups.size());
    std::size_t heads = groups.size() <= mostLines ? groups.size() : std::max<std::size_t>(mostLines, 1) - 1;

    std::string text;
    std::size_t untold = 0;
    for (const LossKind& kind : lossKinds()) {
        const auto found = groups.find(kind.id);
        if (found == groups.end())
            continue;
        const Group& group = found->second;
        if (heads == 0) {
            untold += group.losses.size();
            continue;
        }
        --heads;
        text += fmt::format("{}: {}, {}\n", kind.id, kind.why, valuesText(group.losses.size()));
        for (std::size_t i = 0; i < group.lines; ++i)
            text += lineOf(*group.losses[i]);
    }
    return untold > 0 ? text + fmt::format("and {} more\n", valuesText(untold)) : text;
}

} // namespace brackwater::lossreport
