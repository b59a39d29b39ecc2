#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/SmartPtr.h>
#include <QxXmlLib16/values/BigInteger.h>
#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/values/DateTime.h>
#include <QxXmlLib16/values/DateTimeSpan.h>
#include <QxXmlLib16/values/Decimal.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include "collections/support/Recorders.h"
#include "foundation/support/MessageOf.h"

#include <gtest/gtest.h>

using namespace QxXmlLib16;

namespace {

const CSerializationContext& kDefault = CSerializationContext::m_defaultContext;

// Two values of each kind in their canonical text, and the item type each is written with.
template <class Col>
struct Sample;

#define QX_SAMPLE(Col, kind, itemType, first, second)                                                        \
    template <>                                                                                              \
    struct Sample<Col> {                                                                                     \
        static auto Parse(const std::wstring& text) {                                                        \
            return CConversions::kind##FromString(text, CWhitespaceUtils::wsCollapse);                       \
        }                                                                                                    \
        static constexpr int kItemType = itemType;                                                           \
        static constexpr const wchar_t* kTexts[2] = {first, second};                                         \
    };

QX_SAMPLE(ChexBinaryCol, hexBinary, 1, L"0A1B", L"FF")
QX_SAMPLE(Cbase64BinaryCol, base64Binary, 2, L"AQID", L"/w==")
QX_SAMPLE(Ci1Col, i1, 3, L"-128", L"127")
QX_SAMPLE(Ci2Col, i2, 4, L"-5", L"300")
QX_SAMPLE(Ci4Col, i4, 5, L"-7", L"2147483647")
QX_SAMPLE(Ci8Col, i8, 6, L"-9000000000", L"1")
QX_SAMPLE(Cui1Col, ui1, 7, L"0", L"255")
QX_SAMPLE(Cui2Col, ui2, 8, L"65535", L"1")
QX_SAMPLE(Cui4Col, ui4, 9, L"4294967295", L"0")
QX_SAMPLE(Cui8Col, ui8, 10, L"18446744073709551615", L"3")
QX_SAMPLE(Cr4Col, r4, 11, L"0.5", L"-2.25")
QX_SAMPLE(Cr8Col, r8, 12, L"0.1", L"1e+300")
QX_SAMPLE(CdurationCol, duration, 13, L"P1Y2M", L"PT5S")
QX_SAMPLE(CyearMonthCol, yearMonth, 14, L"2024-02", L"1999-12")
QX_SAMPLE(CmonthDayCol, monthDay, 15, L"--02-29", L"--12-31")
QX_SAMPLE(CyearCol, year, 16, L"2024", L"1")
QX_SAMPLE(CmonthCol, month, 17, L"--05", L"--12")
QX_SAMPLE(CdayCol, day, 18, L"---07", L"---31")
QX_SAMPLE(CdateCol, date, 19, L"2024-02-29", L"1999-12-31")
QX_SAMPLE(CdatetimeCol, datetime, 20, L"2024-02-29T10:20:30", L"1999-12-31T23:59:59Z")
QX_SAMPLE(CtimeCol, time, 21, L"10:20:30", L"23:59:59")
QX_SAMPLE(CstringCol, string, 23, L"a b", L"x")
QX_SAMPLE(CbooleanCol, boolean, 24, L"true", L"false")
QX_SAMPLE(CdecimalCol, decimal, 25, L"1.5", L"-20")
QX_SAMPLE(CintegerCol, integer, 26, L"123456789012345678901234567890", L"-1")

#undef QX_SAMPLE

// No facets, the given count bounds.
template <class Col>
CSmartPtr<Col> MakeCol(int minOccurs = 0, int maxOccurs = -1, const wchar_t* maxInclusive = nullptr) {
    return CSmartPtr<Col>(new Col(L"a", L"", minOccurs, maxOccurs, nullptr, -1, -1, nullptr, maxInclusive,
                                  nullptr, nullptr, -1, -1, -1, CWhitespaceUtils::wsCollapse, nullptr));
}

template <class Col>
class TypedCollection : public ::testing::Test {
protected:
    using S = Sample<Col>;

    TypedCollection()
        : col(MakeCol<Col>()) {
        col->AddEventListener(&sink);
    }

    auto Value(int i) const { return S::Parse(S::kTexts[i]); }

    std::wstring Written(const Col& collection) const {
        CRecordingWriter writer;
        CXmlObjectBase::ToXml_Int(&collection, &writer, false, L"", kDefault, false);
        return writer.log;
    }

    CSmartPtr<Col> col;
    CRecordingSink sink;
};

using Family = ::testing::Types<ChexBinaryCol, Cbase64BinaryCol, Ci1Col, Ci2Col, Ci4Col, Ci8Col, Cui1Col,
                                Cui2Col, Cui4Col, Cui8Col, Cr4Col, Cr8Col, CdurationCol, CyearMonthCol,
                                CmonthDayCol, CyearCol, CmonthCol, CdayCol, CdateCol, CdatetimeCol, CtimeCol,
                                CstringCol, CbooleanCol, CdecimalCol, CintegerCol>;
TYPED_TEST_SUITE(TypedCollection, Family);

} // namespace

TYPED_TEST(TypedCollection, ReadsConsecutiveSiblingsAndWritesThemBack) {
    using S = Sample<TypeParam>;
    CXmlDocument document;
    const std::wstring xml =
        std::wstring(L"<r><a>") + S::kTexts[0] + L"</a><a> " + S::kTexts[1] + L" </a><b/><a>x</a></r>";
    document.LoadXml(xml.c_str());
    CXmlElement* root = document.GetDocumentElement();

    CXmlElement* stop = CXmlObjectBase::FromXml_Int(this->col.Get(), root, root->GetFirstElement(), kDefault);
    ASSERT_NE(nullptr, stop);
    EXPECT_EQ(L"b", stop->GetLocalName());
    ASSERT_EQ(2, this->col->GetCount());
    EXPECT_TRUE(this->col->Item(0) == this->Value(0));
    EXPECT_TRUE(this->col->Item(1) == this->Value(1));

    const std::wstring type = FormatString(L":%d", S::kItemType);
    EXPECT_EQ(std::wstring(L"<|a>") + S::kTexts[0] + type + L"</><|a>" + S::kTexts[1] + type + L"</>",
              this->Written(*this->col));
}

TYPED_TEST(TypedCollection, InsertsAtAnIndexAnnouncingBeforeTheIndexCheck) {
    this->col->Add(this->Value(0));
    this->col->AddAt(0, this->Value(1));
    this->col->AddAt(2, this->Value(1));
    EXPECT_TRUE(this->col->Item(0) == this->Value(1));
    EXPECT_TRUE(this->col->Item(1) == this->Value(0));
    EXPECT_EQ(3, this->col->GetCount());
    this->sink.log.clear();

    EXPECT_EQ(L"Index out of range",
              MessageOf<CQxInvalidParamException>([&] { this->col->AddAt(4, this->Value(0)); }));
    EXPECT_EQ(L"Index out of range",
              MessageOf<CQxInvalidParamException>([&] { this->col->AddAt(-1, this->Value(0)); }));
    EXPECT_EQ(L"+ +", this->sink.log);
    EXPECT_EQ(3, this->col->GetCount());
    EXPECT_EQ(L"Index -1 is out of range, use 0 - 3",
              MessageOf<CQxInvalidParamException>([&] { this->col->Item(-1); }));
    EXPECT_EQ(L"Index 3 is out of range, use 0 - 3",
              MessageOf<CQxInvalidParamException>([&] { this->col->Item(3); }));
}

TYPED_TEST(TypedCollection, RemoveAnnouncesItsIndexAndCompletesWithZero) {
    for (int i = 0; i < 3; ++i)
        this->col->Add(this->Value(i % 2));
    this->sink.log.clear();
    this->col->Remove(2);
    EXPECT_EQ(L"-(2) -!(0) ~", this->sink.log);
    this->sink.log.clear();
    EXPECT_EQ(L"Index 5 is out of range, use 0 - 2",
              MessageOf<CQxInvalidParamException>([&] { this->col->Remove(5); }));
    EXPECT_EQ(L"-(5)", this->sink.log);
    this->col->Remove(0);
    EXPECT_TRUE(this->col->Item(0) == this->Value(1));
    this->col->Add(this->Value(0));
    this->sink.log.clear();
    this->col->Clear();
    EXPECT_EQ(0, this->col->GetCount());
    EXPECT_EQ(L"-(1) -!(0) ~ -(0) -!(0) ~", this->sink.log);
}

TYPED_TEST(TypedCollection, WritesNothingWhenTheCountIsOutOfBounds) {
    CSmartPtr<TypeParam> few = MakeCol<TypeParam>(3, 4);
    few->Add(this->Value(0));
    few->Add(this->Value(1));
    CRecordingWriter writer;
    EXPECT_EQ(L"The Minimum number of [a] elements allowed in this collection is 3",
              MessageOf<CQxValidationException>(
                  [&] { CXmlObjectBase::ToXml_Int(few.Get(), &writer, false, L"", kDefault, false); }));
    EXPECT_EQ(L"", writer.log);

    CSerializationContext ignoring;
    ignoring.SetIgnoreInvalidCollectionCounts(true);
    CXmlObjectBase::ToXml_Int(few.Get(), &writer, false, L"", ignoring, false);
    EXPECT_NE(L"", writer.log);
}

// A facet is checked after the add is announced, and a violation refused; a date of another kind,
// or one outside the facets, is refused before anything is announced.
TEST(TypedCollectionFacets, RefusalsAndWhatIsAnnouncedBeforeThem) {
    CRecordingSink sink;
    CSmartPtr<Ci4Col> numbers = MakeCol<Ci4Col>(0, -1, L"10");
    numbers->AddEventListener(&sink);
    EXPECT_EQ(L"Invalid Value for a [11]", MessageOf<CQxInvalidValueException>([&] { numbers->Add(11); }));
    EXPECT_EQ(0, numbers->GetCount());
    EXPECT_EQ(L"+", sink.log);

    const auto date = [](const wchar_t* text) {
        return CConversions::dateFromString(text, CWhitespaceUtils::wsNone);
    };
    const CDateTime dateTime =
        CConversions::datetimeFromString(L"2024-02-29T10:00:00", CWhitespaceUtils::wsNone);
    sink.log.clear();
    const auto refusal = [&](auto col, const CDateTime& value) {
        col->AddEventListener(&sink);
        const std::wstring message = MessageOf<CQxException>([&] { col->Add(value); });
        EXPECT_EQ(0, col->GetCount());
        return message;
    };
    EXPECT_EQ(L"Dates added to this collection must be of type dt_date",
              refusal(MakeCol<CdateCol>(), dateTime));
    EXPECT_EQ(L"Dates added to this collection must be of type dt_dateTime",
              refusal(MakeCol<CdatetimeCol>(), date(L"2024-02-29")));
    EXPECT_EQ(L"Dates added to this collection must be of type dt_gMonthDay",
              refusal(MakeCol<CmonthDayCol>(), date(L"2024-02-29")));
    EXPECT_EQ(L"Invalid Value for a [2024-02-29].",
              refusal(MakeCol<CdateCol>(0, -1, L"2000-01-01"), date(L"2024-02-29")));
    EXPECT_EQ(L"", sink.log);
}

TEST(TypedCollectionFacets, ReadingStopsAtTheFirstRefusedValueAndNamesItsElement) {
    CSmartPtr<CstringCol> col(new CstringCol(L"a", L"", 0, -1, L"[a-z]+", -1, 3, nullptr, nullptr, nullptr,
                                             nullptr, -1, -1, -1, CWhitespaceUtils::wsPreserve, nullptr));
    CXmlDocument document;
    document.LoadXml(L"<r><a>ab</a><a>abcd</a><a>c</a></r>");
    CXmlElement* root = document.GetDocumentElement();
    try {
        CXmlObjectBase::FromXml_Int(col.Get(), root, root->GetFirstElement(), kDefault);
        ADD_FAILURE() << "the long value was taken";
    } catch (const CQxValidationException& e) {
        EXPECT_EQ(L"/r/a[2]", e.GetPath());
        ASSERT_NE(nullptr, dynamic_cast<const CQxInvalidValueException*>(e.GetInnerException()));
        EXPECT_EQ(L"Invalid Value for a [abcd].", e.GetInnerException()->GetMessage());
    }
    EXPECT_EQ(1, col->GetCount());
}

// The pattern mode, last of the constructor's arguments, reaches the items' facet check.
TEST(TypedCollectionFacets, ExactPatternModeReadsThePatternAsXmlSchema) {
    const auto consonants = [](PatternMode mode) {
        return CSmartPtr<CstringCol>(new CstringCol(L"a", L"", 0, -1, L"[a-z-[aeiou]]+", -1, -1, nullptr,
                                                    nullptr, nullptr, nullptr, -1, -1, -1,
                                                    CWhitespaceUtils::wsPreserve, nullptr, mode));
    };
    consonants(pmExact)->Add(L"bcd");
    EXPECT_EQ(L"Invalid Value for a [bcd].",
              MessageOf<CQxInvalidValueException>([&] { consonants(pmTranslated)->Add(L"bcd"); }));
}

TEST(TypeCollectionReading, MatchesNamespacesUnlessTheyAreIgnored) {
    CXmlDocument document;
    document.LoadXml(L"<r xmlns:p='urn:p'><a>1</a><p:a>2</p:a><a>3</a></r>");
    CXmlElement* root = document.GetDocumentElement();
    CSmartPtr<Ci4Col> col = MakeCol<Ci4Col>();
    EXPECT_EQ(
        L"urn:p",
        CXmlObjectBase::FromXml_Int(col.Get(), root, root->GetFirstElement(), kDefault)->GetNamespaceURI());
    EXPECT_EQ(1, col->GetCount());

    CSerializationContext ignoring;
    ignoring.SetIgnoreNamespaces(true);
    col->Clear();
    EXPECT_EQ(nullptr, CXmlObjectBase::FromXml_Int(col.Get(), root, root->GetFirstElement(), ignoring));
    EXPECT_EQ(3, col->GetCount());
    EXPECT_EQ(nullptr, CXmlObjectBase::FromXml_Int(col.Get(), root, nullptr, kDefault));
}
