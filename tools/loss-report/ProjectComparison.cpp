#include "loss-report/Comparison.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

namespace brackwater::lossreport {

namespace {

constexpr Subject kProject{"project", "", ""};

constexpr std::uint32_t kStart = 0x02400002, kFinish = 0x02400003, kFromStart = 0x02400004, kTitle = 0x02400008;
constexpr std::uint32_t kSymbol = 0x02400010, kSymbolPlace = 0x02400011, kDigits = 0x02400012, kCode = 0x024013BB;
constexpr std::uint32_t kSummaryTitle = 2;

std::string propertyOf(const inspect::ProjectFile& file, std::uint32_t type) {
    const auto found = std::ranges::find(file.properties, type, &inspect::ProjectProperty::type);
    return found == file.properties.end() ? std::string() : found->value;
}

void compareTitle(Comparison& comparison) {
    if (!comparison.plan.title)
        return;
    const std::string& title = *comparison.plan.title;
    comparison.text(kProject, "title", title, propertyOf(comparison.file, kTitle));
    const auto summary = std::ranges::find(comparison.file.summary, kSummaryTitle, &inspect::SummaryValue::id);
    comparison.text(kProject, "title for file managers", title,
                    summary == comparison.file.summary.end() ? std::string() : summary->text, Kind::SummaryTitle);
}

/// The currency settings derived from a sample of an amount, such as "$ 1,234.50".
struct CurrencySample {
    std::string symbol;
    int place = 0; ///< 0 before the amount, 1 after, 2 and 3 the same with a blank between
    std::size_t digits = 0;
};

constexpr std::string_view kBlanks = " \t\n\r\v\f";

std::optional<CurrencySample> sampleOf(std::string_view text) {
    constexpr std::string_view whole = "0123456789,";
    const std::size_t first = text.find_first_of(whole);
    if (first == std::string_view::npos)
        return std::nullopt;
    std::size_t end = std::min(text.find_first_not_of(whole, first), text.size());
    CurrencySample sample;
    while (end < text.size() && text[end] == '.') {
        const std::size_t last = std::min(text.find_first_not_of("0123456789", end + 1), text.size());
        if (last == end + 1)
            break;
        sample.digits = last - end - 1;
        end = last;
    }
    const std::string_view before = text.substr(0, first), behind = text.substr(end);
    const std::size_t symbolEnd = before.find_last_not_of(kBlanks);
    if (symbolEnd != std::string_view::npos) {
        sample.symbol = before.substr(0, symbolEnd + 1);
        sample.place = symbolEnd + 1 == before.size() ? 0 : 2;
    } else if (const std::size_t symbol = behind.find_first_not_of(kBlanks); symbol != std::string_view::npos) {
        sample.symbol = behind.substr(symbol);
        sample.place = symbol == 0 ? 1 : 3;
    }
    return sample;
}

void compareCurrency(Comparison& comparison) {
    const auto sample = sampleOf(comparison.plan.currencyFormat.value_or(""));
    if (!sample)
        return;
    comparison.text(kProject, "currency symbol", sample->symbol, propertyOf(comparison.file, kSymbol));
    comparison.text(kProject, "place of the currency symbol", fmt::format("{}", sample->place),
                    propertyOf(comparison.file, kSymbolPlace));
    comparison.text(kProject, "digits of the currency", fmt::format("{}", sample->digits),
                    propertyOf(comparison.file, kDigits));
    if (!sample->symbol.empty() && propertyOf(comparison.file, kCode).empty())
        comparison.add(kProject, Kind::CurrencyCode, "currency code", sample->symbol, "");
}

void compareDates(Comparison& comparison) {
    const SourceScenario& main = comparison.plan.main;
    comparison.text(kProject, "scheduled from the start", main.fixedEnd ? "no" : "yes",
                    propertyOf(comparison.file, kFromStart));
    const auto compare = [&](std::string_view name, const SourceDate& date, std::uint32_t type) {
        const auto expected = comparison.wallTime(date);
        const std::string inFile = propertyOf(comparison.file, type);
        if (expected && expected->text() != inFile)
            comparison.add(kProject, expected->isInRange() ? Kind::ProjectDates : Kind::DateRange, name,
                           expected->text(), inFile);
    };
    compare("start", main.start, kStart);
    compare("finish", main.end, kFinish);
}

void tellOfScenarios(Comparison& comparison) {
    const SourcePlan& plan = comparison.plan;
    for (const std::string& name : plan.otherScenarios)
        comparison.add({"scenario", "", name}, Kind::ScenarioLeftOut, "scenario", name, "");
    for (const std::string& name : {plan.mainName, plan.baselineName})
        if (!name.empty())
            comparison.add({"scenario", "", name}, Kind::ScenarioName, "name", name, "");
}

void tellOfPlaces(Comparison& comparison) {
    std::set<double> places;
    for (const inspect::Task& task : comparison.file.tasks)
        if (task.placeInSheet && !places.insert(*task.placeInSheet).second)
            return comparison.add(kProject, Kind::SheetPlace, "order of the tasks", "as listed",
                                  "the same place for several");
}

} // namespace

void compareProject(Comparison& comparison) {
    compareTitle(comparison);
    compareCurrency(comparison);
    compareDates(comparison);
    tellOfScenarios(comparison);
    tellOfPlaces(comparison);
}

} // namespace brackwater::lossreport
