// Runs every stored input of the fuzzers and expects no crash and no unexpected exception; the sanitizers detect other
// faults.
#include "../../fuzz/FuzzSupport.h"
#undef BRACKWATER_REPLAY
#include "../../fuzz/LibraryLeaks.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" {
int replay_template(const std::uint8_t* data, std::size_t size);
int replay_properties(const std::uint8_t* data, std::size_t size);
int replay_scenario(const std::uint8_t* data, std::size_t size);
int replay_bundle(const std::uint8_t* data, std::size_t size);
int replay_dates(const std::uint8_t* data, std::size_t size);
int replay_inspect(const std::uint8_t* data, std::size_t size);
}

namespace brackwater::test {
namespace {

struct Kind {
    const char* name;
    int (*take)(const std::uint8_t*, std::size_t);
    int fewestInputs;
};

void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.name; }

class Corpus : public testing::TestWithParam<Kind> {};

TEST_P(Corpus, RunsWithoutAFault) {
    const fuzz::SilentLog silent;
    int inputs = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::string(BRACKWATER_SOURCE_DIR) + "/fuzz/corpus/" + GetParam().name)) {
        SCOPED_TRACE(entry.path().filename());
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        EXPECT_EQ(GetParam().take(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()), 0);
        ++inputs;
    }
    EXPECT_GE(inputs, GetParam().fewestInputs);
}

INSTANTIATE_TEST_SUITE_P(Stored, Corpus,
                         testing::Values(Kind{"template", replay_template, 40},
                                         Kind{"properties", replay_properties, 50},
                                         Kind{"scenario", replay_scenario, 90}, Kind{"bundle", replay_bundle, 40},
                                         Kind{"dates", replay_dates, 60}, Kind{"inspect", replay_inspect, 40}),
                         testing::PrintToStringParamName());

} // namespace
} // namespace brackwater::test
