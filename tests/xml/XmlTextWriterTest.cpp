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

TEST(XmlTextWriterNamespaces, GeneratedPrefixDeclaredOnTheElementThatNeedsIt) {
    EXPECT_EQ(L"<AA:root xmlns:AA=\"urn:a\"/>\n", Written([](CXmlTextWriter& w) {
                  w.WriteStartElement(L"root", L"urn:a");
                  w.WriteEndElement();
              }));
    EXPECT_EQ(L"<AA:root xmlns:AA=\"urn:a\">\n\t<AB:x xmlns:AB=\"urn:b\">1</AB:x>\n</AA:root>\n",
              Written([](CXmlTextWriter& w) {
                  w.WriteStartElement(L"root", L"urn:a");
                  w.WriteStartElement(L"x", L"urn:b");
                  w.WriteString(L"1", itString, false);
                  w.WriteEndElement();
                  w.WriteEndElement();
              }));
}

TEST(XmlTextWriterNamespaces, DefaultAndRootDeclarations) {
    EXPECT_EQ(L"<root xmlns=\"urn:a\" xmlns:p=\"urn:p\">\n\t<p:c/>\n\t<d/>\n</root>\n",
              Written([](CXmlTextWriter& w) {
                  w.SetDefaultNamespace(L"urn:a");
                  w.AddNamespace(L"p", L"urn:p");
                  w.WriteStartElement(L"root", L"urn:a");
                  w.WriteStartElement(L"c", L"urn:p");
                  w.WriteEndElement();
                  w.WriteStartElement(L"d", L"urn:a");
                  w.WriteEndElement();
                  w.WriteEndElement();
              }));
}

TEST(XmlTextWriterNamespaces, DeclarationsGoOutOfScopeWithTheirElement) {
    // The second b-child needs its prefix declared again: the first declaration ended with its element.
    EXPECT_EQ(L"<r><AA:x xmlns:AA=\"urn:b\"/><AA:x xmlns:AA=\"urn:b\"/></r>", Written([](CXmlTextWriter& w) {
                  w.SetFormat(false);
                  w.WriteStartElement(L"r", L"");
                  for (int i = 0; i < 2; ++i) {
                      w.WriteStartElement(L"x", L"urn:b");
                      w.WriteEndElement();
                  }
                  w.WriteEndElement();
              }));
}

TEST(XmlTextWriterNamespaces, UniquePrefixesSkipThoseInUse) {
    EXPECT_EQ(L"AA", CXmlWriter::NsIntToString(0));
    EXPECT_EQ(L"AB", CXmlWriter::NsIntToString(1));
    EXPECT_EQ(L"BA", CXmlWriter::NsIntToString(26));
    CXmlWriter::NamespaceMap map{{L"urn:1", L"AA"}, {L"urn:2", L"AC"}};
    EXPECT_EQ(L"AB", CXmlWriter::GetUniquePrefix(map));
}

TEST(XmlTextWriterNamespaces, ContextMapIsCopiedOnlyOnWrite) {
    CXmlWriter::CXmlWriterContext root(L"r", L"", L"urn:d", {{L"urn:p", L"p"}});
    CXmlWriter::CXmlWriterContext child(L"c", L"", &root);
    EXPECT_EQ(&root.GetNamespaceMap(), &child.GetNamespaceMap());
    child.SetNamespaceMapValue(L"urn:q", L"q");
    EXPECT_NE(&root.GetNamespaceMap(), &child.GetNamespaceMap());
    EXPECT_EQ(L"p", child.GetNamespaceMapValue(L"urn:p"));
    EXPECT_EQ(L"", root.GetNamespaceMapValue(L"urn:q"));
    child.SetDefaultNamespace(L"urn:e");
    EXPECT_EQ(L"urn:d", root.GetDefaultNamespace());
    EXPECT_EQ(L"urn:e", child.GetDefaultNamespace());
}

TEST(XmlTextWriterAttributes, EscapingAndQualifiedNames) {
    EXPECT_EQ(L"<e a=\"1&#xA;&quot;&amp;&lt;&gt;'\t\" xmlns:AA=\"urn:x\" AA:b=\"2\" AA:c=\"3\"/>",
              Written([](CXmlTextWriter& w) {
                  w.SetFormat(false);
                  w.WriteStartElement(L"e", L"");
                  w.WriteAttributeString(L"a", L"", L"1\n\"&<>'\t\r", itString);
                  w.WriteAttributeString(L"b", L"urn:x", L"2", itString);
                  w.WriteAttributeString(L"c", L"urn:x", L"3", itString);
                  w.WriteEndElement();
              }));
}

TEST(XmlTextWriterAttributes, TypeAndNil) {
    EXPECT_EQ(
        L"<e xmlns:AA=\"urn:t\"  xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" AB:type=\"AA:T\""
        L" AB:nil=\"true\"/>",
        Written([](CXmlTextWriter& w) {
            w.SetFormat(false);
            w.WriteStartElement(L"e", L"");
            w.WriteAttributeType(L"urn:t", L"T", itNone);
            w.WriteAttributeNil();
            w.WriteEndElement();
        }));
}

TEST(XmlTextWriterText, EscapingLineEndsAndCData) {
    EXPECT_EQ(L"<e>a\r\n\"&amp;&lt;&gt;</e>\r\n", Written([](CXmlTextWriter& w) {
                  w.SetEOLType(eolCRLF);
                  w.WriteStartElement(L"e", L"");
                  w.WriteString(L"a\r\n\"&<>", itString, false);
                  w.WriteEndElement();
              }));
    EXPECT_EQ(L"<e><![CDATA[x<y]]></e>\n", Written([](CXmlTextWriter& w) {
                  w.WriteStartElement(L"e", L"");
                  w.WriteString(L"<![CDATA[x<y]]>", itString, false);
                  w.WriteEndElement();
              }));
}

TEST(XmlTextWriterText, EmptyAndDefaultValuesWriteNothing) {
    auto element = [](bool writeDefaults) {
        return Written([writeDefaults](CXmlTextWriter& w) {
            w.SetWriteDefaultElementValues(writeDefaults);
            w.WriteStartElement(L"e", L"");
            w.WriteString(L"", itString, false);
            w.WriteString(L"d", itString, true);
            w.WriteEndElement();
        });
    };
    EXPECT_EQ(L"<e/>\n", element(false));
    EXPECT_EQ(L"<e>d</e>\n", element(true));
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
}

TEST(XmlTextWriterLayout, DeclarationWithoutFormattingStillEndsItsLine) {
    CTextStream stream(encUTF32);
    CXmlTextWriter writer(stream);
    writer.SetFormat(false);
    writer.WriteStartDocument();
    EXPECT_EQ(L"<?xml version=\"1.0\"?>\n", std::wstring(stream.GetText()));
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
             w.WriteStartElement(L"c", L"");
             w.WriteEndElement();
             w.WriteAttributeNil();
         },
         L"Attributes must be added before elements"},
        {[](CXmlTextWriter& w) { w.WriteAttributeType(L"", L"T", itNone); },
         L"Attributes must be added before elements"},
        {[](CXmlTextWriter& w) {
             w.WriteStartElement(L"e", L"");
             w.WriteHeaderDirective(L"<!x>");
         },
         L"Headed directives must appear before an Element has been added."},
        {[](CXmlTextWriter& w) { w.SetEOLType(static_cast<EOLType>(2)); }, L"Invalid EOL type."},
        {[](CXmlTextWriter& w) {
             w.WriteStartElement(L"e", L"");
             w.Close();
         },
         L"An Element has not been closed."},
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
