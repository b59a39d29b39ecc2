#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/TextStream.h>
#include <QxXmlLib16/xml/XmlTextWriter.h>

#include <gtest/gtest.h>

#include <functional>

using namespace QxXmlLib16;

namespace {

// Runs the writes against a fresh writer on a UTF-8 memory stream and returns all the text.
std::wstring Written(const std::function<void(CXmlTextWriter&)>& writes) {
    CTextStream stream(encUTF8);
    CXmlTextWriter writer(stream);
    writer.Open();
    writes(writer);
    writer.Close();
    return stream.GetText();
}

std::wstring ThrownBy(const std::function<void(CXmlTextWriter&)>& writes) {
    CTextStream stream(encUTF8);
    CXmlTextWriter writer(stream);
    try {
        writes(writer);
    } catch (const CQxException& e) {
        return e.GetMessage();
    }
    return L"(nothing thrown)";
}

} // namespace

// What a sequence of writes produces, formatted (one tab per level) unless it says otherwise. Prefixes
// and their scopes are proven by the documents the bindings write.
TEST(XmlTextWriterOutput, AttributesAndText) {
    using W = CXmlTextWriter;
    const struct {
        const char* what;
        std::function<void(W&)> writes;
        const wchar_t* expected;
    } cases[] = {
        {"attributes are escaped, and qualified once declared",
         [](W& w) {
             w.SetFormat(false);
             w.WriteStartElement(L"e", L"");
             w.WriteAttributeString(L"a", L"", L"1\n\"&<>'\t\r", itString);
             w.WriteAttributeString(L"b", L"urn:x", L"2", itString);
             w.WriteAttributeString(L"c", L"urn:x", L"3", itString);
             w.WriteEndElement();
         },
         L"<e a=\"1&#xA;&quot;&amp;&lt;&gt;'\t\" xmlns:AA=\"urn:x\" AA:b=\"2\" AA:c=\"3\"/>"},
        {"xsi:type and xsi:nil",
         [](W& w) {
             w.SetFormat(false);
             w.WriteStartElement(L"e", L"");
             w.WriteAttributeType(L"urn:t", L"T", itNone);
             w.WriteAttributeNil();
             w.WriteEndElement();
         },
         L"<e xmlns:AA=\"urn:t\"  xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" AB:type=\"AA:T\" "
         L"AB:nil=\"true\"/>"},
        {"text is escaped, with the line ends asked for",
         [](W& w) {
             w.SetEOLType(eolCRLF);
             w.WriteStartElement(L"e", L"");
             w.WriteString(L"a\r\n\"&<>", itString, false);
             w.WriteEndElement();
         },
         L"<e>a\r\n\"&amp;&lt;&gt;</e>\r\n"},
        {"CDATA passes through",
         [](W& w) {
             w.WriteStartElement(L"e", L"");
             w.WriteString(L"<![CDATA[x<y]]>", itString, false);
             w.WriteEndElement();
         },
         L"<e><![CDATA[x<y]]></e>\n"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Written(c.writes), c.expected) << c.what;

    EXPECT_EQ(CXmlWriter::NsIntToString(26), L"BA");
    CXmlWriter::NamespaceMap map{{L"urn:1", L"AA"}, {L"urn:2", L"AC"}};
    EXPECT_EQ(CXmlWriter::GetUniquePrefix(map), L"AB");
}

TEST(XmlTextWriterLayout, IndentationDeclarationAndOtherOutputs) {
    CTextStream stream(encUTF16);
    CXmlTextWriter writer(stream);
    writer.SetIndentChars(L"  ");
    writer.WriteStartDocument();
    writer.WriteHeaderDirective(L"<!DOCTYPE r>");
    writer.WritePI(L"<?pi x?>");
    writer.WriteComment(L"a<b");
    writer.WriteStartElement(L"r", L"");
    writer.WriteInlineSchema(L"<s/>");
    writer.WriteStartElement(L"a", L"");
    writer.WriteStartElement(L"b", L"");
    writer.WriteString(L"t", itString, false);
    writer.WriteEndElement();
    writer.WriteRawElement(L"<raw/>");
    writer.WriteEndElement();
    writer.WriteEndElement();
    writer.Close();
    EXPECT_EQ(L"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<!DOCTYPE r>\n<?pi x?>\n\n<!--a&lt;b-->\n"
              L"<r \n<s/>\n>\n  <a>\n    <b>t</b>\n<raw/>\n  </a>\n</r>\n",
              std::wstring(stream.GetText()));

    // Without formatting the declaration still ends its line.
    CTextStream plain(encUTF32);
    CXmlTextWriter unformatted(plain);
    unformatted.SetFormat(false);
    unformatted.WriteStartDocument();
    EXPECT_EQ(L"<?xml version=\"1.0\"?>\n", std::wstring(plain.GetText()));
}

TEST(XmlTextWriterErrors, Messages) {
    const std::pair<std::function<void(CXmlTextWriter&)>, const wchar_t*> cases[] = {
        {[](CXmlTextWriter& w) {
             w.WriteStartElement(L"e", L"");
             w.WriteString(L"x", itString, false);
             w.WriteAttributeString(L"a", L"", L"1", itString);
         },
         L"Attributes must be added before elements"},
        {[](CXmlTextWriter& w) {
             w.WriteStartElement(L"e", L"");
             w.WriteHeaderDirective(L"<!x>");
         },
         L"Headed directives must appear before an Element has been added."},
        {[](CXmlTextWriter& w) { w.SetEOLType(static_cast<EOLType>(2)); }, L"Invalid EOL type."},
        {[](CXmlTextWriter& w) { w.WriteEndElement(); }, L"No Element is open."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.second, ThrownBy(c.first));
}

namespace {
// Counts the flushes and the characters buffered at each.
class CountingStream : public CTextStream {
public:
    CountingStream()
        : CTextStream(encUTF8) {}
    void Flush() override {
        flushedAt.push_back(GetLength());
        m_buffer.Empty();
    }
    std::vector<unsigned long> flushedAt;
};
} // namespace

TEST(XmlTextWriterBuffering, FlushesOnceFourThousandNinetySixCharactersWait) {
    CountingStream stream;
    CXmlTextWriter writer(stream);
    writer.SetFormat(false);
    writer.WriteStartElement(L"r", L"");
    for (int i = 0; i < 1000; ++i) {
        writer.WriteStartElement(L"item", L"");
        writer.WriteEndElement();
    }
    writer.WriteEndElement();
    ASSERT_FALSE(stream.flushedAt.empty());
    for (unsigned long length : stream.flushedAt) {
        EXPECT_GE(length, 4096u);
        EXPECT_LT(length, 4096u + 16);
    }
}

// The writer keeps one context per open element and no stack frame: a million levels open and
// close, declarations made at the top stay in force at the bottom, and a writer abandoned with
// everything open frees it all.
TEST(XmlTextWriterDepth, MillionLevelsOpenCloseAndAbandon) {
    const int depth = 1000000;
    const auto open = [depth](CXmlTextWriter& w) {
        w.SetFormat(false);
        for (int i = 0; i < depth; ++i)
            w.WriteStartElement(L"a", L"urn:a");
    };
    const std::wstring text = Written([&](CXmlTextWriter& w) {
        open(w);
        w.WriteString(L"x", itString, false);
        for (int i = 0; i < depth; ++i)
            w.WriteEndElement();
    });
    std::wstring expected = L"<AA:a xmlns:AA=\"urn:a\">";
    for (int i = 1; i < depth; ++i)
        expected += L"<AA:a>";
    expected += L"x";
    for (int i = 0; i < depth; ++i)
        expected += L"</AA:a>";
    EXPECT_TRUE(text == expected) << text.size() << " characters instead of " << expected.size();
    EXPECT_EQ(ThrownBy([&](CXmlTextWriter& w) {
                  open(w);
                  w.Close();
              }),
              L"An Element has not been closed.");
}
