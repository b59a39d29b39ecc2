// Typed collections as a load meets them: a long run of sibling elements read into a collection and
// written back. Each phase is timed against the bare work it cannot avoid, measured in the same run:
// reading against converting the same texts into a plain vector, writing against converting the
// values to text and writing them through the same writer without a collection.
#include "BenchTiming.h"

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/foundation/SmartPtr.h>
#include <QxXmlLib16/foundation/TextStream.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>
#include <QxXmlLib16/xml/XmlTextWriter.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

using namespace QxXmlLib16;

namespace {

constexpr int kValues = 100000;
const CSerializationContext& kContext = CSerializationContext::m_defaultContext;

void Report(const char* name, double measured, double reference) {
    std::printf("%-44s %8.3f s  reference %8.3f s  ratio %5.2f\n", name, measured, reference,
                measured / reference);
}

template <class Col>
CSmartPtr<Col> MakeCol() {
    return CSmartPtr<Col>(new Col(L"a", L"", 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1,
                                  -1, -1, CWhitespaceUtils::wsCollapse, nullptr));
}

template <class Col, class Convert, class Write>
void Measure(const char* kind, const std::wstring& xml, Convert convert, Write toText) {
    CXmlDocument document;
    document.LoadXml(xml.c_str());
    CXmlElement* first = document.GetDocumentElement()->GetFirstElement();

    const double read = MedianSeconds([&] {
        CSmartPtr<Col> col = MakeCol<Col>();
        CXmlObjectBase::FromXml_Int(col.Get(), document.GetDocumentElement(), first, kContext);
    });
    const double readReference = MedianSeconds([&] {
        std::vector<decltype(convert(std::wstring()))> values;
        for (CXmlElement* e = first; e; e = e->GetNextSiblingElement())
            values.push_back(convert(e->GetText()));
    });
    std::printf("%s\n", kind);
    Report("  read siblings into the collection", read, readReference);

    CSmartPtr<Col> col = MakeCol<Col>();
    CXmlObjectBase::FromXml_Int(col.Get(), document.GetDocumentElement(), first, kContext);
    const double write = MedianSeconds([&] {
        CTextStream stream;
        CXmlTextWriter writer(stream);
        writer.Open();
        CXmlObjectBase::ToXml_Int(col.Get(), &writer, false, L"", kContext, false);
        writer.Close();
    });
    const double writeReference = MedianSeconds([&] {
        CTextStream stream;
        CXmlTextWriter writer(stream);
        writer.Open();
        for (const auto& value : *col) {
            writer.WriteStartElement(L"a", L"");
            writer.WriteString(toText(value), col->GetItemType(), false);
            writer.WriteEndElement();
        }
        writer.Close();
    });
    Report("  write the collection", write, writeReference);
}

} // namespace

int main() {
    std::wstring ints = L"<r>", strings = L"<r>";
    for (int i = 0; i < kValues; ++i) {
        ints += L"<a>" + std::to_wstring(i * 7919 % 1000003 - 500000) + L"</a>";
        strings += L"<a>name of waypoint " + std::to_wstring(i) + L"</a>";
    }
    ints += L"</r>";
    strings += L"</r>";
    const auto collapse = CWhitespaceUtils::wsCollapse;
    Measure<Ci4Col>(
        "Ci4Col", ints, [&](const std::wstring& t) { return CConversions::i4FromString(t, collapse); },
        [](long v) { return CConversions::i4ToString(v); });
    Measure<CstringCol>(
        "CstringCol", strings,
        [&](const std::wstring& t) { return CConversions::stringFromString(t, collapse); },
        [](const std::wstring& v) { return CConversions::stringToString(v); });
}
