#include "loss-report/Comparison.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace brackwater::lossreport {

namespace {

constexpr double kSecondsOfTenth = 6;
constexpr std::int64_t kWholeTenth = 6, kHour = 3600;
// The rounding error of a calculation with doubles.
constexpr double kRelativeError = 1e-9;

bool isClose(double one, double other, double absolute) {
    return std::abs(one - other) <= absolute + kRelativeError * std::max(std::abs(one), std::abs(other));
}

/// The text with line ends as blanks, as in a single-line field.
std::string oneLine(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        const bool isWide = text.starts_with("\xE2\x80\xA8") || text.starts_with("\xE2\x80\xA9");
        line += isWide || text.front() == '\n' || text.front() == '\r' ? ' ' : text.front();
        text.remove_prefix(isWide ? 3 : 1);
    }
    return line;
}

std::string joined(const std::vector<std::string>& paragraphs, std::string_view separator) {
    std::string text;
    for (const std::string& paragraph : paragraphs)
        text.append(text.empty() && &paragraph == &paragraphs.front() ? "" : separator).append(paragraph);
    return text;
}

std::string_view withoutLastLineEnds(std::string_view text) {
    while (text.ends_with('\n') || text.ends_with('\r'))
        text.remove_suffix(1);
    return text;
}

} // namespace

bool isSameNumber(double one, double other) noexcept { return isClose(one, other, 1e-6); }

bool isSameWork(double one, double other) noexcept { return isClose(one, other, 0.5); }

std::string hoursText(double seconds) { return inspect::numberText(seconds / 3600) + " h"; }

std::string hoursOfWork(double thousandthsOfMinutes) {
    return inspect::numberText(thousandthsOfMinutes / 60'000) + " h";
}

std::string textOf(const std::optional<WallTime>& time) { return time ? time->text() : "none"; }

void Comparison::add(const Subject& subject, Kind kind, std::string_view fieldName, std::string source,
                     std::string inFile) {
    const LossKind& known = lossKind(kind);
    _report.losses.push_back({std::string(known.id), std::string(subject.object), std::string(subject.id),
                              std::string(subject.name), std::string(fieldName), std::move(source), std::move(inFile),
                              std::string(known.why)});
}

void Comparison::text(const Subject& subject, std::string_view fieldName, std::string_view source,
                      std::string_view inFile, Kind otherwise) {
    if (source != inFile)
        add(subject, oneLine(source) == inFile ? Kind::LineEnds : otherwise, fieldName, std::string(source),
            std::string(inFile));
}

void Comparison::date(const Subject& subject, std::string_view fieldName, const SourceDate& source,
                      const std::optional<inspect::Date>& inFile, Kind otherwise) {
    const auto expected = wallTime(source);
    if (!expected)
        return;
    const auto told = [&](Kind kind) { add(subject, kind, fieldName, expected->text(), inspect::textOf(inFile)); };
    if (!expected->isInRange())
        return told(Kind::DateRange);
    if (!inFile)
        return told(otherwise);
    const std::int64_t lacking = expected->seconds - wallTimeOf(*inFile).seconds;
    if (lacking < 0 || lacking >= kWholeTenth)
        return told(expected->isDaylightTime && lacking >= kHour && lacking < kHour + kWholeTenth ? Kind::ZoneRule
                                                                                                  : otherwise);
    if (lacking > 0)
        told(Kind::Seconds);
    if (expected->isRepeated)
        told(Kind::RepeatedHour);
}

void Comparison::duration(const Subject& subject, std::string_view fieldName, double seconds,
                          const inspect::Duration& inFile, Kind otherwise) {
    const double lacking = seconds - kSecondsOfTenth * inFile.tenths;
    if (lacking == 0)
        return;
    const double most = std::numeric_limits<std::int32_t>::max();
    Kind kind = otherwise;
    if (std::abs(lacking) < kSecondsOfTenth)
        kind = Kind::Seconds;
    else if (seconds > most)
        kind = Kind::DurationRange;
    add(subject, kind, fieldName, hoursText(seconds), hoursText(kSecondsOfTenth * inFile.tenths));
}

void Comparison::work(const Subject& subject, std::string_view fieldName, double seconds, double inFile,
                      Kind otherwise) {
    if (isSameWork(workOfSeconds(seconds), inFile))
        return;
    const bool isCut = isSameWork(std::trunc(seconds / 3600) * 60'000, inFile);
    add(subject, isCut ? Kind::WholeHours : otherwise, fieldName, hoursText(seconds), hoursOfWork(inFile));
}

void Comparison::number(const Subject& subject, std::string_view fieldName, double source, double inFile, double scale,
                        Kind otherwise) {
    if (!isSameNumber(source * scale, inFile))
        add(subject, otherwise, fieldName, inspect::numberText(source), inspect::numberText(inFile / scale));
}

void Comparison::note(const Subject& subject, const std::optional<SourceNote>& source, std::string_view inFile) {
    if (!source)
        return;
    if (source->hasMarkup)
        add(subject, Kind::NoteMarkup, "note", "formatted", "plain");
    const std::string whole = joined(source->paragraphs, "\n");
    if (withoutLastLineEnds(whole) == withoutLastLineEnds(inFile))
        return;
    Kind kind = Kind::Unexplained;
    if (inFile.empty())
        kind = Kind::NoteEmptied;
    else if (joined(source->paragraphs, "") == inFile)
        kind = Kind::NoteParagraphs;
    else if (whole.find_first_of("{}\\") != std::string::npos)
        kind = Kind::NoteBraces;
    add(subject, kind, "note", whole, std::string(inFile));
}

void Comparison::fields(const Subject& subject, const SourceFields& source, const inspect::TextFields& inFile,
                        const std::map<std::size_t, std::string>& names) {
    for (std::size_t i = 0; i < source.size(); ++i)
        if (!source[i].second.empty())
            field(subject, source[i].first, source[i].second, i + 1, inFile, names);
}

void Comparison::field(const Subject& subject, std::string_view key, std::string_view value, std::size_t position,
                       const inspect::TextFields& inFile, const std::map<std::size_t, std::string>& names) {
    const std::string shown = oneLine(value), alias = oneLine(key);
    const auto nameOf = [&names](std::size_t number) {
        const auto name = names.find(number);
        return name == names.end() ? std::string() : name->second;
    };
    const auto isAlias = [&](const std::string& name) { return name == alias || name == key; };
    const auto isCutAlias = [&](const std::string& name) { return !name.empty() && alias.starts_with(name); };
    const auto isValue = [&](const std::string& text) { return text == value || text == shown; };
    const auto find = [&](const auto& isRight) {
        return std::ranges::find_if(inFile, [&](const auto& text) { return isRight(text.first, text.second); });
    };

    auto found =
        find([&](std::size_t number, const std::string& text) { return isValue(text) && isAlias(nameOf(number)); });
    if (found == inFile.end())
        found = find(
            [&](std::size_t number, const std::string& text) { return isValue(text) && isCutAlias(nameOf(number)); });
    if (found == inFile.end()) {
        const auto own = inFile.find(position);
        found = own != inFile.end() && isValue(own->second)
                    ? own
                    : find([&](std::size_t, const std::string& text) { return isValue(text); });
    }
    if (found == inFile.end())
        return add(subject, Kind::FieldLeftOut, key, std::string(value), "");
    const std::string name = nameOf(found->first);
    if (!isAlias(name))
        add(subject, isCutAlias(name) ? Kind::AliasCut : Kind::FieldName, key, std::string(key), name);
    else if (found->second != value)
        add(subject, Kind::LineEnds, key, std::string(value), found->second);
    else if (name != key)
        add(subject, Kind::LineEnds, key, std::string(key), name);
}

} // namespace brackwater::lossreport
