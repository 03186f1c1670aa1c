#include "Platform/Log/Log.h"

#include "support/LogCapture.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <functional>
#include <sched.h>
#include <span>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>

namespace brackwater {
namespace {

struct Outcome {
    std::string standardError;
    int status = 0;
    pid_t process = 0;
};

// Runs `action` in a process of its own, as a program that writes its log into a file.
Outcome runInChild(const std::function<void()>& action) {
    const test::TempFolder folder;
    const std::string path = folder.path("log");
    Outcome outcome;
    std::fflush(nullptr); // so that the child does not print it again
    outcome.process = fork();
    if (outcome.process == 0) {
        const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(file, 2);
        action();
        std::exit(0);
    }
    waitpid(outcome.process, &outcome.status, 0);
    outcome.standardError = folder.read("log");
    return outcome;
}

bool endsIn(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// Of the present minute.
long milliseconds() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return now.tv_sec % 60 * 1000 + now.tv_nsec / 1'000'000;
}

TEST(Log, LineBeginsWithLocalTimeAndProcess) {
    constexpr long kCoarseness = 11; // of the log's clock
    const long before = milliseconds() - kCoarseness;
    const Outcome outcome = runInChild([] {
        logLine("plain {} text");
        logLine("{} and {}", "formatted", 42);
    });
    const std::string digits4 = "[0-9][0-9][0-9][0-9]";
    const std::string digits2 = "[0-9][0-9]";
    const std::string prefix = digits4 + "-" + digits2 + "-" + digits2 + " " + digits2 + ":" + digits2 + ":" + digits2 +
                               "[.][0-9]" + digits2 + " Brackwater\\[" + std::to_string(outcome.process) + "\\] ";
    EXPECT_THAT(outcome.standardError,
                testing::MatchesRegex(prefix + "plain \\{\\} text\n" + prefix + "formatted and 42\n"));
    constexpr std::size_t kSeconds = std::string_view("YYYY-MM-DD HH:MM:").size();
    const double logged = std::stod(outcome.standardError.substr(kSeconds, std::string_view("SS.mmm").size()));
    const auto since = [before](long time) { return (time - before + 120'000) % 60'000; };
    EXPECT_LE(since(std::lround(logged * 1000)), since(milliseconds()));
}

void useOneProcessor() {
    cpu_set_t processors;
    CPU_ZERO(&processors);
    CPU_SET(static_cast<std::size_t>(sched_getcpu()), &processors);
    sched_setaffinity(0, sizeof(processors), &processors);
}

// Every second line is filled in place, where the log offers room.
void logNumbers(int count) {
    for (int i = 0; i < count; ++i) {
        const std::string line = "line " + std::to_string(i);
        char* const room = i % 2 == 0 ? nullptr : beginLogLine(line.size());
        if (room == nullptr) {
            logLine(std::string_view(line));
            continue;
        }
        std::copy(line.begin(), line.end(), room);
        endLogLine();
    }
}

std::string withoutPrefixes(const std::string& log) {
    std::string texts;
    std::istringstream lines(log);
    for (std::string line; std::getline(lines, line); texts += '\n')
        texts += line.substr(std::min(line.find("] "), line.size()));
    return texts;
}

TEST(Log, AllLinesArriveInOrderAtExitFromAnyNumberOfProcessors) {
    constexpr int count = 50'000;
    std::string wanted;
    for (int i = 0; i < count; ++i)
        wanted += "] line " + std::to_string(i) + "\n";
    for (const bool hasOneProcessor : {false, true}) {
        const Outcome outcome = runInChild([hasOneProcessor] {
            if (hasOneProcessor)
                useOneProcessor();
            logNumbers(count);
        });
        EXPECT_EQ(withoutPrefixes(outcome.standardError), wanted) << hasOneProcessor;
    }
}

TEST(Log, ChildOfAForkWritesItsOwnLinesAlone) {
    for (const int before : {1, 20'000}) {
        const Outcome outcome = runInChild([before] {
            logNumbers(before);
            const pid_t child = fork();
            logLine("of {}", child == 0 ? "the child" : "the parent");
            if (child == 0) {
                flushLog();
                _exit(0); // without the leak sanitizer, which tells in the log that it misses the parent's thread
            }
            waitpid(child, nullptr, 0);
        });
        const std::string& log = outcome.standardError;
        const std::string parent = "[" + std::to_string(outcome.process) + "] of ";
        EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), before + 2);
        EXPECT_NE(log.find(parent + "the parent\n"), std::string::npos);
        EXPECT_NE(log.find("] of the child\n"), std::string::npos);
        EXPECT_EQ(log.find(parent + "the child\n"), std::string::npos);
    }
}

TEST(Log, MessageOfAnySizeStaysWholeAndInItsPlace) {
    const std::string huge(300'000, 'x');
    for (const int linesBefore : {0, 20'000}) {
        const Outcome outcome = runInChild([&huge, linesBefore] {
            logNumbers(linesBefore);
            logLine("before");
            logLine(std::string_view(huge));
            logLine("between");
            logLine(std::string_view(huge));
            logLine("");
            logLine("two\nlines");
        });
        const auto position = outcome.standardError.find(huge + "\n");
        ASSERT_NE(position, std::string::npos);
        EXPECT_LT(outcome.standardError.find("before\n"), position);
        EXPECT_LT(outcome.standardError.find("between\n"), outcome.standardError.find(huge + "\n", position + 1));
        EXPECT_TRUE(endsIn(outcome.standardError, "two\nlines\n"));
    }
}

TEST(Log, NothingIsLostWhenTheProcessDies) {
    const Outcome uncaught = runInChild([] {
        logLine("last words");
        const std::function<void()> failing = [] { throw std::runtime_error("nobody catches this"); };
        [&failing]() noexcept { failing(); }();
    });
    EXPECT_NE(uncaught.standardError.find("last words\n"), std::string::npos);
    EXPECT_TRUE(WIFSIGNALED(uncaught.status) && WTERMSIG(uncaught.status) == SIGABRT);
    for (const int signalNumber : {SIGTERM, SIGINT, SIGHUP, SIGABRT}) {
        const Outcome killed = runInChild([signalNumber] {
            // A background process of a script is born with some of them ignored, and that stays.
            std::signal(signalNumber, SIG_DFL);
            if (signalNumber != SIGINT)
                logNumbers(20'000);
            logLine("last words");
            raise(signalNumber);
        });
        EXPECT_TRUE(endsIn(killed.standardError, "last words\n")) << signalNumber;
        EXPECT_TRUE(WIFSIGNALED(killed.status) && WTERMSIG(killed.status) == signalNumber) << signalNumber;
    }
}

TEST(Log, LinesLoggedWhileTheProcessEndsArriveToo) {
    struct Late {
        ~Late() { logLine("from a destructor"); }
    };
    const Outcome outcome = runInChild([] {
        static const Late late;
        logLine("first");
    });
    EXPECT_TRUE(endsIn(outcome.standardError, "from a destructor\n")) << outcome.standardError;
}

TEST(Log, MessageInPiecesIsOneLine) {
    const std::string longPiece(100'000, 'x');
    const auto logAll = [&longPiece] {
        const std::array<std::string_view, 4> pieces{"one", "", " two ", longPiece};
        logPieces(std::span(pieces).first(3));
        logPieces(pieces);
    };
    const Outcome outcome = runInChild(logAll);
    const std::string lines = outcome.standardError;
    EXPECT_NE(lines.find("] one two \n"), std::string::npos);
    EXPECT_NE(lines.find("] one two " + longPiece + "\n"), std::string::npos);
    const test::LogCapture log;
    logAll();
    EXPECT_EQ(log.lines(), (std::vector<std::string>{"one two ", "one two " + longPiece}));
}

TEST(Log, InnermostSinkReceivesTheBareMessages) {
    test::LogCapture outer;
    logLine("a {}", 1);
    {
        test::LogCapture inner;
        logLine("b");
        EXPECT_EQ(inner.lines(), std::vector<std::string>{"b"});
    }
    logLine("c");
    EXPECT_EQ(outer.lines(), (std::vector<std::string>{"a 1", "c"}));
}

} // namespace
} // namespace brackwater
