#include "TWMSPCommon/MSPExportMapper/Common/MSPENoteMapper.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLNotesAdapter.h"
#include "support/ScenarioBuilder.h"

#include <gtest/gtest.h>

namespace brackwater::test {

namespace {

std::string notesOf(std::string_view noteXml) {
    const auto document = documentOf(std::string("<note>").append(noteXml).append("</note>"));
    const auto notes = MSPENoteMapper().newNotesFromZELBNote(document->rootElement());
    return notes ? notes->notes().value_or("(no text)") : "(null)";
}

} // namespace

TEST(NoteMapper, EveryParagraphEndsInALineEnd) {
    EXPECT_EQ(notesOf("<text><p><run><lit>ab</lit></run></p></text>"), "ab\n");
    EXPECT_EQ(notesOf("<text><p><run><lit>a</lit></run><run/><run><lit>b</lit></run></p><p/></text>"), "ab\n\n");
}

TEST(NoteMapper, FormattingIsDropped) {
    EXPECT_EQ(notesOf("<text><p style='x'>loose<run kern='1'><style/><lit>a<b>b</b></lit></run></p><x>y</x></text>"),
              "ab\n");
}

TEST(NoteMapper, TextWithoutParagraphsIsEmptyAndMissingTextIsNoNote) {
    EXPECT_EQ(notesOf("<text/>"), "");
    EXPECT_EQ(notesOf("<p><run><lit>x</lit></run></p>"), "(null)");
}

} // namespace brackwater::test
