#include "platform/xml/Document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "platform/base/File.h"
#include "platform/base/RuntimeError.h"
#include "platform/xml/Vocabulary.h"
#include "support/ErrorOf.h"

namespace ostrand {
namespace {

using testing::HasSubstr;

RuntimeError errorOf(const std::string& text) {
  try {
    Document::read(text);
  } catch (const RuntimeError& error) {
    return error;
  }
  return RuntimeError(0, "no error");
}

std::string utf16(std::u16string_view text, bool little, bool mark) {
  std::string bytes;
  const auto add = [&](char16_t c) {
    const char low = static_cast<char>(c & 0xFF), high = static_cast<char>(c >> 8);
    bytes += little ? low : high;
    bytes += little ? high : low;
  };
  if (mark) add(0xFEFF);
  for (const char16_t c : text) add(c);
  return bytes;
}

TEST(Document, ReadsElementsAttributesAndText) {
  const Document doc = Document::read(R"(<?xml version="1.0"?>
    <!-- a comment -->
    <dtm a="1"><b>text &lt;&amp;&gt; &#228;</b><c><![CDATA[<raw>]]></c></dtm>)");
  ASSERT_TRUE(doc.root());
  EXPECT_EQ(doc.root().name(), "dtm");
  EXPECT_EQ(doc.root().attribute("a"), "1");
  EXPECT_EQ(doc.root().child("b").text(), "text <&> \xC3\xA4");
  EXPECT_EQ(doc.root().child("c").text(), "<raw>");
}

TEST(Document, AValueOfBlanksIsKeptAndIndentIsNot) {
  const Document doc = Document::read("<a>\n  <b>  </b>\n  <c> x </c>\n</a>");
  EXPECT_EQ(doc.root().child("b").text(), "  ");
  EXPECT_EQ(doc.root().child("c").text(), " x ");
  EXPECT_EQ(doc.root().xml(), "<a><b>  </b><c> x </c></a>");
}

TEST(Document, SerializesSoThatItReadsTheSame) {
  for (const std::string text :
       {R"(<?xml version="1.0" encoding="UTF-8"?><!--c--><a x="&quot;&lt;&#10;&#9;'" y=""><b>&#13;&lt;&amp;]]&gt;</b><?pi data?><c/><d> </d></a>)",
        R"(<a>mixed <b>text</b> and <![CDATA[raw < & ]]> tail</a>)", R"(<a><b/><b></b><!-- <c/> --></a>)",
        "<a>\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E</a>"}) {
    const std::string once = Document::read(text).xml();
    EXPECT_EQ(Document::read(once).xml(), once) << text;
    EXPECT_EQ(Document::read(once).root().text(), Document::read(text).root().text());
    const std::string indented = Document::read(text).xml(true);
    EXPECT_EQ(Document::read(indented).root().text(), Document::read(text).root().text()) << indented;
  }
}

TEST(Document, SerializesInOneLineOrIndented) {
  const Document doc = Document::read("<?xml version=\"1.0\"?><a><b x='1'/><c>t</c></a>");
  EXPECT_EQ(doc.xml(), "<?xml version=\"1.0\"?>\n<a><b x=\"1\"/><c>t</c></a>");
  EXPECT_EQ(doc.xml(true), "<?xml version=\"1.0\"?>\n<a>\n  <b x=\"1\" />\n  <c>t</c>\n</a>\n");
}

TEST(Document, CopiesShareOneTree) {
  const Document doc = Document::read("<a/>");
  const Document copy = doc;
  copy.root().setAttribute("x", "1");
  EXPECT_EQ(doc.root().attribute("x"), "1");
  EXPECT_TRUE(doc == copy);
  EXPECT_FALSE(doc == Document::read("<a/>"));
}

TEST(Document, AnEmptyHandleHasNothing) {
  const Document none;
  EXPECT_FALSE(none);
  for (const auto& call : std::vector<std::function<void()>>{[&] { none.root(); }, [&] { none.select("a"); }, [&] { none.selectAll("a"); },
                                                             [&] { none.selectText("a"); }, [&] { none.xml(); }}) {
    try {
      call();
      ADD_FAILURE();
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), RuntimeError::NothingThere);
    }
  }
}

TEST(MalformedDocument, IsABadArgument) {
  for (const char* text : {"", " ", "text", "<", "<a", "<a>", "<a></b>", "</a>", "<a><b></a></b>", "<a x></a>", "<a x=1/>", "<a x=\"1/>", "<!-- <a/>",
                           "<a><![CDATA[</a>", "<?xml version=\"1.0\"?>", "<!-- only -->", "<a/><b/>", "<!DOCTYPE a", "<a>&#xZZ;</b>"}) {
    const RuntimeError error = errorOf(text);
    EXPECT_EQ(error.number(), RuntimeError::BadArgument) << text;
    EXPECT_THAT(error.description(), HasSubstr("not a document")) << text;
    EXPECT_THAT(error.description(), HasSubstr("line ")) << text;
  }
}

TEST(MalformedDocument, TellsThePlaceOfTheFault) {
  EXPECT_THAT(errorOf("<a>\n  <b>\n  </c>\n</a>").description(), HasSubstr("line 3, column 5"));
  EXPECT_THAT(errorOf("<a></b>").description(), HasSubstr("line 1, column 6"));
  EXPECT_THAT(errorOf("<a/>\n<!-- -->\n <b/>").description(), HasSubstr("a second root element at line 3, column 3"));
}

TEST(MalformedDocument, KnowsThePlaceWhateverTheLinesBefore) {
  // Line ends in tags, in values and in pairs all count.
  EXPECT_THAT(errorOf("<a\nx='1\n2'\r\n>\r\n\r\n\r\nt\r\n<b\n/>\n</c></a>").description(), HasSubstr("line 10, column 3"));
  EXPECT_THAT(errorOf(utf16(u"<a>\n<b></c></a>", true, true)).description(), HasSubstr("line 2, column 6"));
  EXPECT_THAT(errorOf("\xEF\xBB\xBF<a>\n</b>").description(), HasSubstr("line 2, column 3"));
}

TEST(MalformedDocument, TheNextOneReadsFine) {
  EXPECT_EQ(errorOf("<a>").number(), RuntimeError::BadArgument);
  EXPECT_TRUE(Document::read("<a/>").root());
}

TEST(DocumentFile, IsReadFromThePath) {
  const auto path = std::filesystem::path(testing::TempDir()) / "ostrand-document.xml";
  writeWholeFile(path, "<a>text</a>");
  EXPECT_EQ(Document::readFile(path).root().text(), "text");
  writeWholeFile(path, "<a>\n</b>");
  try {
    Document::readFile(path);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), RuntimeError::BadArgument);
    EXPECT_THAT(error.description(), HasSubstr("ostrand-document.xml: not a document"));
    EXPECT_THAT(error.description(), HasSubstr("line 2, column 3"));
  }
  std::filesystem::remove(path);
  try {
    Document::readFile(path);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), RuntimeError::FileNotFound);
  }
}

TEST(DocumentEncoding, ReadsUtf16OfBothOrdersWithAndWithoutItsMark) {
  for (const bool little : {true, false})
    for (const bool mark : {true, false}) {
      const Document doc = Document::read(utf16(u"<?xml version=\"1.0\" encoding=\"UTF-16\"?><a x=\"\u00e4\u20ac\">\U0001D11E</a>", little, mark));
      EXPECT_EQ(doc.root().attribute("x"), "\xC3\xA4\xE2\x82\xAC");
      EXPECT_EQ(doc.root().text(), "\xF0\x9D\x84\x9E");
      // It is written as UTF-8 and says so.
      EXPECT_THAT(doc.xml(), HasSubstr("encoding=\"UTF-8\""));
      EXPECT_EQ(Document::read(doc.xml()).xml(), doc.xml());
      EXPECT_EQ(Document::read(utf16(u"<a/>", little, mark)).root().name(), "a");
    }
}

TEST(DocumentEncoding, ReplacesBrokenPairsAndDropsAHalfUnit) {
  std::u16string text = u"<a>?x?</a>";
  text[3] = 0xD834;
  text[5] = 0xDD1E;
  EXPECT_EQ(Document::read(utf16(text, true, true)).root().text(), "\xEF\xBF\xBDx\xEF\xBF\xBD");
  EXPECT_EQ(Document::read(utf16(u"<a/>", true, true) + "x").root().name(), "a");
  EXPECT_EQ(errorOf(utf16(u"<a>\xD834", true, true)).number(), RuntimeError::BadArgument);
}

TEST(DocumentEncoding, PassesOverTheMarkOfUtf8) {
  const Document doc = Document::read("\xEF\xBB\xBF<?xml version=\"1.0\"?><a>\xC3\xA4</a>");
  EXPECT_EQ(doc.root().text(), "\xC3\xA4");
  EXPECT_EQ(doc.xml(), "<?xml version=\"1.0\"?>\n<a>\xC3\xA4</a>");
}

TEST(DocumentEncoding, Latin1BecomesUtf8AndSaysSo) {
  const Document doc = Document::read("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xE4</a>");
  EXPECT_EQ(doc.root().text(), "\xC3\xA4");
  EXPECT_EQ(Document::read(doc.xml()).root().text(), "\xC3\xA4");
}

TEST(DocumentEncoding, Utf8KeepsItsLabel) {
  EXPECT_EQ(Document::read("<?xml version=\"1.0\" encoding=\"utf-8\"?><a/>").xml(), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<a/>");
}

TEST(DocumentType, IsSkippedAndItsEntitiesStayUnexpanded) {
  const auto secret = std::filesystem::path(testing::TempDir()) / "ostrand-secret.txt";
  writeWholeFile(secret, "the secret");
  const Document doc = Document::read("<!DOCTYPE a [<!ENTITY e \"expanded\"><!ENTITY s SYSTEM \"file://" + secret.string() +
                                      "\"><!ELEMENT a (#PCDATA)>]><a x=\"&e;\">&e;|&s;|&lt;</a>");
  std::filesystem::remove(secret);
  EXPECT_EQ(doc.root().text(), "&e;|&s;|<");
  EXPECT_EQ(doc.root().attribute("x"), "&e;");
  EXPECT_EQ(Document::read(doc.xml()).root().text(), "&e;|&s;|<");
  EXPECT_THAT(doc.xml(), Not(HasSubstr("DOCTYPE")));
}

TEST(DocumentType, EntitiesOfEntitiesCostNothing) {
  std::string text = "<!DOCTYPE a [<!ENTITY e0 \"ha\">";
  for (int i = 1; i < 60; ++i) text += "<!ENTITY e" + std::to_string(i) + " \"&e" + std::to_string(i - 1) + ";&e" + std::to_string(i - 1) + ";\">";
  EXPECT_EQ(Document::read(text + "]><a>&e59;</a>").root().text(), "&e59;");
}

TEST(Document, ACopyIsADocumentOfItsOwn) {
  const Document doc = Document::read(
      "<?xml version=\"1.0\"?><!-- top --><d:dtm xmlns:d=\"x-schema:TAVPersistentDataSchema.xml\"><a n=\"1 &lt; 2\"> </a><b>t<![CDATA[<c>]]></b></d:dtm>");
  doc.select("//b").clone();
  const Document copy = doc.copy();
  EXPECT_EQ(copy.xml(), doc.xml());
  EXPECT_EQ(copy.root().name(), "data:dtm");
  copy.select("//a").setAttribute("n", "other");
  copy.select("//b").remove();
  EXPECT_EQ(doc.select("//a").attribute("n"), "1 < 2");
  EXPECT_TRUE(doc.select("//b"));
  EXPECT_EQ(test::errorOf([] { (void)Document().copy(); }), RuntimeError::NothingThere);
}

TEST(Document, ACopyOutlivesWhatItWasMadeFrom) {
  Document doc = Document::read("<dtm><a name='text'/></dtm>");
  const Document copy = doc.copy();
  doc = Document();
  EXPECT_EQ(copy.xml(), "<dtm><a name=\"text\"/></dtm>");
}

}  // namespace
}  // namespace ostrand
