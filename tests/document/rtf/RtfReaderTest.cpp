#include "document/rtf/RtfReader.h"

#include "base/Utf8.h"
#include "document/rtf/RtfCodePages.h"
#include "harness/Iconv.h"
#include "harness/TemporaryFolder.h"
#include "support/RichTextInvariants.h"
#include "support/TestsFolder.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

std::string Sample(const std::string& name) {
    return Contents(TestsFolder() / "samples/rtf" / name);
}

RichText Read(const std::string& body) {
    std::string rtf = "{\\rtf1\\ansi\\ansicpg1251";
    rtf.append(body).append("}");
    RichText rich = ReadRtf(rtf);
    EXPECT_EQ(RichTextFault(rich), "") << body;
    return rich;
}

// The format of the run that holds the first `wanted`.
CharacterFormat FormatOf(const RichText& rich, std::u16string_view wanted) {
    const std::size_t at = rich.text.find(wanted);
    EXPECT_NE(at, std::u16string::npos) << ToUtf8(wanted);
    std::size_t end = 0;
    for (const RichText::Run& run : rich.runs)
        if ((end += run.length) > at)
            return run.format;
    return {};
}

void ExpectTexts(std::initializer_list<std::pair<const char*, std::u16string_view>> cases) {
    for (const auto& [rtf, text] : cases)
        EXPECT_EQ(Read(rtf).text, text) << rtf;
}

TEST(RtfReader, KnowsRtfByItsContent) {
    EXPECT_TRUE(IsRtf("{\\rtf1 x}"));
    EXPECT_TRUE(IsRtf("\xEF\xBB\xBF \r\n{\\rtf"));
    EXPECT_FALSE(IsRtf("x {\\rtf1}"));
    EXPECT_FALSE(IsRtf("{\\rt"));
    EXPECT_FALSE(IsRtf(""));
}

TEST(RtfReader, ReadsTheLetterAsItsPlainTextSays) {
    const RichText rich = ReadRtf(Sample("letter.rtf"));
    std::u16string expected = FromUtf8(Sample("letter.txt"));
    for (std::size_t at = 0; (at = expected.find(u'\n', at)) != std::u16string::npos; at += 2)
        expected.replace(at, 1, u"\r\n");
    EXPECT_EQ(rich.text, expected);
    EXPECT_EQ(RichTextFault(rich), "");
}

TEST(RtfReader, ReadsSpecialCharactersAndBreaks) {
    ExpectTexts({
        {" a\\tab b\\~c\\-d\\_e\\{\\}\\\\", u"a\tb\u00A0c\u00ADd\u2011e{}\\"},
        {"\\emdash\\endash\\lquote\\rquote\\ldblquote\\rdblquote\\bullet ", u"—–‘’“”•"},
        {" a\\par b\\line c\\page d\\\ne\\par ", u"a\r\nb\r\nc\r\nd\r\ne\r\n"},
        {" a\\par\\par ", u"a\r\n\r\n"},
        {" one\r\ntwo", u"onetwo"},
        {" a\\'0d\\'0ab", u"a\r\n\r\nb"},
        {"\\trowd a\\cell b\\cell\\row\\trowd\\cell c\\cell\\row ", u"a\tb\r\n\tc\r\n"},
        {"{\\listtext 1.\\tab}item\\par{\\pntext 2.}next", u"1.\titem\r\n2.next"},
    });
}

TEST(RtfReader, ReadsBytesInThePageOfTheirFont) {
    const std::string fonts = "{\\fonttbl{\\f0\\fcharset204 A;}{\\f1\\fcharset0 B;}{\\f2\\fcharset238 C;}"
                              "{\\f3\\fcharset161 D;}{\\f4\\fcharset77 E;}{\\f5\\fcharset128 F;}{\\f6 G;}}";
    EXPECT_EQ(Read(fonts + "\\f0\\'cf\\f1\\'cf\\f2\\'cf\\f3\\'cf\\f4\\'cf\\f6\\'cf").text, u"ПÏĎΟœП");
    EXPECT_EQ(Read(fonts + "\\f5 a\\'83\\'41b\\'83Bc\\'83{}d").text, u"a\uFFFDb\uFFFDc\uFFFDd");
    EXPECT_EQ(ReadRtf("{\\rtf1\\mac \\'80}").text, u"Ä");
    EXPECT_EQ(ReadRtf("{\\rtf1\\ansi\\ansicpg866 \\'80}").text, u"А");
}

TEST(RtfReader, PrefersUnicodeToItsStandIns) {
    ExpectTexts({
        {"\\u1046?x", u"Жx"},
        {"\\uc2\\u1046\\'c6\\'c6x{\\uc0\\u1047}\\u1048ab!", u"ЖxЗИ!"},
        {"\\u-10179?\\u-8704?x", u"\U0001F600x"},
        {"\\u55357?x\\u56832?y", u"\uFFFDx\uFFFDy"},
        {"\\u1046\\tab x{\\u1047}y", u"ЖxЗy"},
        {"{\\upr{ansi}{\\*\\ud{\\u1046?}}}", u"Ж"},
        {"\\u99999999999999999999?x", u"\uFFFFx"},
    });
}

TEST(RtfReader, HidesWhatIsNoText) {
    ExpectTexts({
        {"{\\info{\\title t}}{\\stylesheet{\\s0 Normal;}}{\\*\\unknown x{y}}{\\header h}a", u"a"},
        {"{\\pict\\wmetafile8 0102}{\\pict\\bin4 }}{{x}b", u"b"},
        {"{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt shown}}", u"shown"},
        {"{\\object{\\*\\objdata 00}{\\result picture}}", u"picture"},
        {"{\\shp{\\*\\shpinst{\\sp{\\sn n}{\\sv v}}{\\shptxt box}}}", u"box"},
        {"a{\\v hidden}b\\v hidden\\v0 c", u"abc"},
        {"a{\\footnote note}b", u"ab"},
    });
    EXPECT_EQ(ReadRtf("{\\rtf1 a}} trailing {\\par").text, u"a");
}

TEST(RtfReader, TellsHowCharactersAndParagraphsLook) {
    const RichText rich =
        Read("\\deff1{\\fonttbl{\\f1\\fcharset204 \\'d8{\\*\\falt other};}{\\f2 Two;}}"
             "{\\colortbl;\\red255\\green0\\blue300;}"
             "plain{\\b\\i bold}\\b heavy\\b0\\ul\\strike lined\\plain\\super up\\nosupersub"
             "\\fs40\\f2\\cf1 big\\par\\pard\\qc\\li720\\fi-360\\sa120\\tx900\\tx400 centred\\par\\pard end"
             "{\\highlight1 marker{\\highlight0 off}}{\\chcbpat1 shade}{\\cb1 field}");
    EXPECT_EQ(FormatOf(rich, u"plain").font, u"Ш");
    EXPECT_EQ(FormatOf(rich, u"plain").halfPoints, 24);
    EXPECT_TRUE(FormatOf(rich, u"bold").bold && FormatOf(rich, u"bold").italic);
    EXPECT_TRUE(FormatOf(rich, u"heavy").bold && !FormatOf(rich, u"heavy").italic);
    EXPECT_TRUE(FormatOf(rich, u"lined").underline && FormatOf(rich, u"lined").strike);
    EXPECT_FALSE(FormatOf(rich, u"lined").bold);
    EXPECT_EQ(FormatOf(rich, u"up").script, Script::Superscript);
    const CharacterFormat big = FormatOf(rich, u"big");
    EXPECT_EQ(big.font, u"Two");
    EXPECT_EQ(big.halfPoints, 40);
    EXPECT_EQ(big.colour, Rgb(255, 0, 255));
    for (const std::u16string_view marked : {u"marker", u"shade", u"field"})
        EXPECT_EQ(FormatOf(rich, marked).background, Rgb(255, 0, 255));
    EXPECT_EQ(FormatOf(rich, u"off").background, std::nullopt);
    EXPECT_EQ(FormatOf(Read("{\\colortbl\\red1;}\\highlight0 none"), u"none").background, std::nullopt);
    ASSERT_EQ(rich.paragraphs.size(), 3U);
    EXPECT_EQ(rich.paragraphs[1].tabs, (std::vector{400_twips, 900_twips}));
    EXPECT_EQ(rich.paragraphs[1].alignment, Alignment::Centre);
    EXPECT_EQ(rich.paragraphs[1].leftIndent, 720_twips);
    EXPECT_EQ(rich.paragraphs[1].firstLineIndent, Twips{-360});
    EXPECT_EQ(rich.paragraphs[1].spaceAfter, 120_twips);
    EXPECT_EQ(rich.paragraphs[2], ParagraphFormat{});
}

TEST(RtfReader, GivesTheTextSoFarOfWhatIsBroken) {
    const auto text = [](const std::string& rtf) {
        const RichText rich = ReadRtf(rtf);
        EXPECT_EQ(RichTextFault(rich), "");
        return rich.text;
    };
    EXPECT_EQ(text("{\\rtf1 open {\\b bold"), u"open bold");
    EXPECT_EQ(text("{\\rtf1 a\\bin99999999 rest}"), u"a");
    EXPECT_EQ(text("{\\rtf1 a\\'zz\\'b"), u"azzb");
    EXPECT_EQ(text("{\\rtf1 a\\fs99999999999\\li-99999999999 b\\"), u"ab");
    EXPECT_EQ(text("{\\rtf1 a" + std::string(10000, '{') + "b" + std::string(10000, '}') + "c}"), u"abc");
    EXPECT_EQ(text("{\\rtf1 a" + std::string(1000000, '{') + "b"), u"ab");
    EXPECT_EQ(text(""), u"");
}

TEST(RtfReader, KeepsItsBooksAtEveryTruncation) {
    const std::string letter = Sample("letter.rtf");
    for (std::size_t length = 0; length <= letter.size(); ++length)
        ASSERT_EQ(RichTextFault(ReadRtf(std::string_view(letter).substr(0, length))), "") << length;
}

TEST(RtfCodePages, AgreeWithThePublishedPages) {
    const std::pair<int, const char*> pages[] = {
        {437, "CP437"},   {850, "CP850"},       {866, "CP866"},         {1250, "CP1250"}, {1252, "CP1252"},
        {1253, "CP1253"}, {1254, "CP1254"},     {1255, "CP1255"},       {1256, "CP1256"}, {1257, "CP1257"},
        {1258, "CP1258"}, {10000, "MACINTOSH"}, {10007, "MAC-CYRILLIC"}};
    for (const auto& [number, name] : pages)
        for (int byte = 0x80; byte < 0x100; ++byte) {
            const char single = static_cast<char>(byte);
            std::u16string read;
            AppendDecoded(read, {&single, 1}, number);
            EXPECT_EQ(read, std::u16string(1, Published(name, static_cast<std::uint8_t>(byte))))
                << name << " byte " << byte;
        }
}

} // namespace
} // namespace quillshift
