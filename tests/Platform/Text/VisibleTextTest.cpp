#include "Platform/Text/VisibleText.h"

#include <gtest/gtest.h>

namespace brackwater {
namespace {

TEST(VisibleText, EscapesTerminalControlsAndKeepsAllScripts) {
    struct Row {
        std::string_view text;
        std::string_view visible;
    };
    constexpr std::string_view zero("a\0b", 3);
    for (const Row& row :
         {Row{"Grüße, دهانون, 瓷砖工 🏠", "Grüße, دهانون, 瓷砖工 🏠"},
          Row{"می\u200Cخواهم co\u00ADop", "می\u200Cخواهم co\u00ADop"},
          Row{"a\r\nb\x1b[2K\x7f", "a\\u{000d}\\u{000a}b\\u{001b}[2K\\u{007f}"},
          Row{"\u0085\u2028\u2029\u202E\u2066\uFEFF", "\\u{0085}\\u{2028}\\u{2029}\\u{202e}\\u{2066}\\u{feff}"},
          Row{"\xC3(\xED\xA0\x80\xF0\x9F", "\\xc3(\\xed\\xa0\\x80\\xf0\\x9f"}, Row{zero, "a\\x00b"}})
        EXPECT_EQ(visibleText(row.text), row.visible);
}

} // namespace
} // namespace brackwater
