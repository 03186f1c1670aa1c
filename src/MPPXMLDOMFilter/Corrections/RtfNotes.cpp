#include "MPPXMLDOMFilter/Corrections/RtfNotes.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "Platform/Text/TextEncoding.h"

#include <fmt/format.h>

#include <cstdint>
#include <iterator>
#include <tuple>
#include <vector>

namespace brackwater {

namespace {

// Font and size of a typed note.
constexpr std::string_view kBegin = R"({\rtf1\ansi\ansicpg1252\deff0\deflang1033)"
                                    R"({\fonttbl{\f0\fswiss\fprq2\fcharset0 Arial;}})"
                                    "\r\n"
                                    R"(\viewkind4\uc1\pard\f0\fs16 )";
constexpr std::string_view kParagraphEnd = "\\par\r\n";
constexpr std::string_view kEnd = "}\r\n";

void appendUnit(std::string& rtf, std::uint16_t unit) {
    constexpr std::uint16_t kFirstOutsideAscii = 0x80;
    if (unit == '\\' || unit == '{' || unit == '}') {
        rtf += '\\';
        rtf += static_cast<char>(unit);
    } else if (unit == '\n') {
        rtf += kParagraphEnd;
    } else if (unit == '\t') {
        rtf += "\\tab ";
    } else if (unit < kFirstOutsideAscii) {
        rtf += static_cast<char>(unit);
    } else if (const auto byte = byteInCodePage1252(unit)) {
        fmt::format_to(std::back_inserter(rtf), "\\'{:02x}", *byte);
    } else {
        // A signed number, and a question mark for readers that do not support it. Surrogates are written as two.
        fmt::format_to(std::back_inserter(rtf), "\\u{}\\'3f", static_cast<std::int16_t>(unit));
    }
}

template <typename Record>
void composeNotesOf(Record& record) {
    if (record.notes && record.notes->empty())
        record.notes.reset();
    if (!record.notes)
        return;
    record.notes = rtfOfNotes(*record.notes);
    record.notesAreRtf = true;
}

} // namespace

std::string rtfOfNotes(std::string_view notes) {
    std::vector<std::uint8_t> units;
    std::ignore = appendAsUTF16LE(units, notes);
    std::string rtf(kBegin);
    rtf.reserve(kBegin.size() + notes.size() + kParagraphEnd.size() + kEnd.size());
    for (std::size_t i = 0; i + 1 < units.size(); i += 2)
        appendUnit(rtf, static_cast<std::uint16_t>(units[i] | units[i + 1] << 8));
    if (!notes.ends_with('\n'))
        rtf += kParagraphEnd;
    rtf += kEnd;
    return rtf;
}

void composeNotes(MPPProject& project) {
    composeNotesOf(static_cast<MPPTask&>(project));
    for (const auto& task : project.tasks)
        composeNotesOf(*task);
    for (const auto& resource : project.resources)
        composeNotesOf(*resource);
}

} // namespace brackwater
