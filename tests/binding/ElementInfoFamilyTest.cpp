// The element descriptors one at a time, on a generated object reduced to two property slots: what
// each reads from a run of children when required or only probed, where it stops, what it stores,
// and how it writes and validates.

#include <QxXmlLib16/QxXmlLib16.h>

#include "foundation/support/MessageOf.h"
#include "support/Failure.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>

using namespace QxXmlLib16;
using namespace QxXmlLib16Data;

namespace {

CElementInfo* const kNoElements[] = {nullptr};
CAttributeInfo* const kNoAttributes[] = {nullptr};

// A generated object reduced to its property slots, which the member under test reads and writes.
class CSlots : public TGeneratedClass<CSlots> {
public:
    QxVariant slot[2];

    int AccessProperty(int property, bool read, QxVariant& value) override {
        read ? void(value = slot[property]) : void(slot[property] = value);
        return 0;
    }
    static const CClassMetaData& MetaData() {
        static const CClassMetaData data(new CParentElementInfo(egSequence, etElement, L"slots", L"", true,
                                                                false, -1, itNone, nullptr, false),
                                         {}, {});
        return data;
    }
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override {}
    std::wstring GetTargetNamespace() const override { return L""; }
    std::wstring GetNamespace() const override { return L""; }
};

// A child class: an optional attribute id and an optional element v.
class CLeaf : public TGeneratedClass<CLeaf> {
public:
    std::optional<long> id, v;

    int AccessProperty(int property, bool read, QxVariant& value) override {
        return AccessValue<itI4>(read, value, property == 0 ? id : v);
    }
    static const CClassMetaData& MetaData() {
        static const CClassMetaData data(
            new CParentElementInfo(egSequence, etElement, L"leaf", L"", false, false, -1, itNone, nullptr,
                                   false),
            {new CElementInfoSeqPrimOpt(L"v", L"", 1, false, itI4, nullptr, CWhitespaceUtils::wsCollapse, {},
                                        nullptr)},
            {new CAttributeInfoPrimitive(L"id", L"", 0, true, itI4, nullptr, CWhitespaceUtils::wsCollapse, {},
                                         nullptr)});
        return data;
    }
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override {
        id = v = {};
    }
    std::wstring GetTargetNamespace() const override { return L""; }
    std::wstring GetNamespace() const override { return L""; }
};

CSmartPtr<CXmlObjectBase> MakeLeaf(int, const wchar_t* name) {
    CSmartPtr<CXmlObjectBase> leaf(new CLeaf);
    leaf->SetElementName(name);
    return leaf;
}

// A leaf for kind="leaf", nothing for any other.
CSmartPtr<CXmlObjectBase> MakeByType(CXmlElement* element) {
    return element->GetAttribute(L"kind", L"") == L"leaf" ? MakeLeaf(0, element->GetLocalName().c_str())
                                                          : nullptr;
}

const wchar_t* const kColours[] = {L"red", L"green"};
const wchar_t* ColourToText(int value) {
    return EnumToText(kColours, value);
}
int TextToColour(const wchar_t* text) {
    return EnumFromText(kColours, text, L"Colour");
}

// What the first slot holds before the member reads.
enum class Holds { Nothing, Numbers, Elements, Element };

void Prepare(CSlots& object, Holds holds) {
    if (holds == Holds::Numbers)
        object.slot[0].SetXmlCollection(new Ci4Col(L"n", L"", 2, 3, nullptr, -1, -1, nullptr, nullptr,
                                                   nullptr, nullptr, -1, -1, -1, CWhitespaceUtils::wsCollapse,
                                                   nullptr));
    if (holds == Holds::Elements) object.slot[0].SetXmlCollection(new CElementCol(L"", L"##any", L"", 0, -1));
    if (holds == Holds::Element) object.slot[0].SetXmlObject(new CElement(L"held", L"", L"##any", L""));
}

// The first slot as text: a collection's count, an object as written ("null" for a null one), a
// value's text, or "-" when it holds nothing.
std::wstring Held(const CSlots& object) {
    const QxVariant& value = object.slot[0];
    if (CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection())
        return FormatString(L"%d items", collection->GetCount());
    if (CSmartPtr<CXmlObjectBase> child = value.GetXmlObject()) return child->ToXml(false, false);
    if (value.GetItemType() == itXmlObject) return L"null";
    return value.IsValid() ? value.ToString() : L"-";
}

using Option = void (*)(CSerializationContext&);

struct ReadCase {
    const char* name;
    std::function<CElementInfo*()> member;
    Holds holds;
    const wchar_t* children;
    XmlElementType probe; // etElement: required here; etGroup: only tried
    // "true x": satisfied, stopped at x ("(end)" past the last child); or the failure and its path.
    std::wstring outcome;
    std::wstring held = L"-";
    Option context = nullptr;
};

void PrintTo(const ReadCase& c, std::ostream* out) {
    *out << c.name;
}

std::wstring Outcome(bool result, const CXmlElement* current) {
    return (result ? L"true " : L"false ") + (current ? current->GetLocalName() : L"(end)");
}

const Option kIgnoreUnknown = [](CSerializationContext& c) { c.SetIgnoreUnknownElements(true); };
const std::wstring kTooFew = L"The Minimum number of [n] elements allowed in this collection is 2 at ";
const std::wstring kNoSubstitute = L"Failed to find a suitable substitution element for [d]. at /r";

template <class Member, class... Arguments>
std::function<CElementInfo*()> Make(Arguments... arguments) {
    return [=] { return new Member(arguments...); };
}
std::vector<ReadCase> ReadCases() {
    const auto seqCol = Make<CElementInfoSeqPrimCol>(L"n", L"", 0);
    const auto choiceCol = Make<CElementInfoChoicePrimCol>(L"n", L"", 0);
    const auto allCol = Make<CElementInfoAllPrimCol>(L"n", L"", 0);
    const auto seqDerived = Make<CElementInfoSeqAbsClsMnd>(L"d", L"", 0, etElement, MakeByType);
    const auto seqOptDerived = Make<CElementInfoSeqAbsClsOpt>(L"d", L"", 0, etElement, MakeByType);
    const auto choiceDerived = Make<CElementInfoChoiceAbsClsOpt>(L"d", L"", 0, etElement, MakeByType);
    const auto choiceClass = Make<CElementInfoChoiceClsOpt>(L"c", L"", 0, etElement, MakeLeaf, 0);
    const auto any = Make<CElementInfoSeqUntpdMnd>(L"AnyElement", L"urn:w", 0, L"##any", L"");
    const auto yy = Make<CElementInfoSeqUntpdMnd>(L"yy", L"urn:w", 0, L"##any", L"");
    const auto choiceOther =
        Make<CElementInfoChoiceUntpdOpt>(L"AnyElement", L"", 0, L"##targetNamespace", L"urn:t");
    const auto zzs = Make<CElementInfoSeqUntpdCol>(L"zz", L"", 0);
    const auto anys = Make<CElementInfoChoiceUntpdCol>(L"AnyElement", L"", 0);
    const auto choicePrim = Make<CElementInfoChoicePrimOpt>(
        L"v", L"", 0, false, itI4, nullptr, CWhitespaceUtils::wsCollapse, CPrimitiveRestrictions(), nullptr);
    const auto Numbers = Holds::Numbers, Nothing = Holds::Nothing, Element = Holds::Element;
    const wchar_t* const numbers = L"<n>1</n><n>2</n><x/>";
    // clang-format off
    return {
        // Collections read their run; a sequence checks the count, a choice reports a match, an
        // all group takes the items but never counts the member as found.
        {"SeqColTakesItsRun", seqCol, Numbers, numbers, etElement, L"true x", L"2 items"},
        {"SeqColTooFew", seqCol, Numbers, L"<n>1</n>", etElement, kTooFew, L"1 items"},
        {"SeqColProbedTooFewMovesOn", seqCol, Numbers, L"<n>1</n><x/>", etGroup, L"false x", L"1 items"},
        {"SeqColCountsIgnored", seqCol, Numbers, L"<n>1</n>", etElement, L"true (end)", L"1 items",
         [](CSerializationContext& c) { c.SetIgnoreInvalidCollectionCounts(true); }},
        {"SeqColWithoutCollection", Make<CElementInfoSeqClsCol>(L"n", L"", 0, etElement), Nothing, L"<n/>", etElement,
         L"The collection member [n] holds no collection. at "},
        {"ChoiceColEnough", choiceCol, Numbers, numbers, etGroup, L"true x", L"2 items"},
        // Probed with too few items: the position is given back, the items stay read.
        {"ChoiceColProbedTooFew", choiceCol, Numbers, L"<n>7</n><x/>", etGroup, L"false n", L"1 items"},
        {"ChoiceColTooFew", choiceCol, Numbers, L"<n>7</n>", etElement, kTooFew, L"1 items"},
        {"AllColRequired", allCol, Numbers, numbers, etElement, L"false x", L"2 items"},
        // Values outside a sequence read only their own element and say whether they did.
        {"ChoiceValueElsewhere", choicePrim, Nothing, L"<x/><v>1</v>", etElement, L"false x", L"-", kIgnoreUnknown},
        {"ChoiceValue", choicePrim, Nothing, L"<v>1</v><x/>", etElement, L"true x", L"1"},
        // A derived class is chosen by the factory from the element itself.
        {"DerivedChosen", seqDerived, Nothing, L"<d kind='leaf' id='4'><v>8</v></d><x/>", etElement, L"true x",
         L"<d id=\"4\"><v>8</v></d>"},
        {"DerivedMissing", seqDerived, Nothing, L"<x/>", etElement, kNoSubstitute},
        {"DerivedUnknown", seqDerived, Nothing, L"<d kind='castle'/>", etElement, kNoSubstitute},
        {"DerivedMissingProbed", seqDerived, Nothing, L"<x/>", etGroup, L"false x"},
        {"OptionalDerivedInSequence", seqOptDerived, Nothing, L"<x/>", etElement, L"true x"},
        {"OptionalDerivedInChoice", choiceDerived, Nothing, L"<x/>", etElement, L"false x"},
        {"OptionalDerivedUnknown", choiceDerived, Nothing, L"<d kind='castle'/>", etGroup, kNoSubstitute},
        // A known class is made new for its element only.
        {"ChoiceClassElsewhere", choiceClass, Nothing, L"<x/>", etElement, L"false x"},
        {"ChoiceClass", choiceClass, Nothing, L"<c id='2'/><x/>", etElement, L"true x", L"<c id=\"2\"/>"},
        // Wildcards: "AnyElement" takes any name, another member name only its own.
        {"WildcardAnyName", any, Element, L"<zz a='1'>t</zz><x/>", etGroup, L"true x", L"<zz a=\"1\">t</zz>"},
        {"WildcardOtherName", yy, Element, L"<zz>t</zz><x/>", etGroup, L"false zz", L"<held/>"},
        {"WildcardOtherNameRequired", yy, Element, L"<zz/>", etElement,
         L"Failed to find the required element from namespace [urn:w]. at /r", L"<held/>"},
        // At the end of the parent even a probe fails loudly.
        {"WildcardAtEnd", yy, Element, L"", etGroup, L"Failed to find the required child element [yy]. at /r",
         L"<held/>"},
        {"OptionalWildcardForeign", choiceOther, Nothing, L"<zz xmlns='urn:other'/>", etElement, L"false zz", L"null"},
        {"OptionalWildcard", choiceOther, Nothing, L"<zz xmlns='urn:t'>t</zz>", etElement, L"true (end)",
         L"<AA:zz xmlns:AA=\"urn:t\">t</AA:zz>"},
        {"WildcardsByName", zzs, Holds::Elements, L"<zz xmlns='urn:a'/><zz xmlns='urn:a'/><yy/>", etElement,
         L"true yy", L"2 items"},
        {"WildcardsOfAnyName", anys, Holds::Elements, L"<zz/><yy/>", etElement, L"true (end)", L"2 items"},
    };
    // clang-format on
}

class ElementRead : public testing::TestWithParam<ReadCase> {};

TEST_P(ElementRead, TakesItsChildrenAndStopsAfterThem) {
    const ReadCase& c = GetParam();
    const std::unique_ptr<CElementInfo> member(c.member());
    CSlots object;
    Prepare(object, c.holds);
    CSerializationContext context;
    if (c.context) c.context(context);
    CXmlDocument document;
    document.LoadXml((std::wstring(L"<r>") + c.children + L"</r>").c_str());
    CXmlElement* current = document.GetDocumentElement()->GetFirstElement();
    std::wstring outcome;
    const Failure failure = FailureOf([&] {
        const bool result =
            member->ElementFromXml(context, &object, document.GetDocumentElement(), &current, L"", c.probe);
        outcome = Outcome(result, current);
    });
    EXPECT_EQ(failure.message == L"(no exception)" ? outcome : failure.message + L" at " + failure.path,
              c.outcome);
    EXPECT_EQ(Held(object), c.held);
}

INSTANTIATE_TEST_SUITE_P(Family, ElementRead, testing::ValuesIn(ReadCases()),
                         [](const testing::TestParamInfo<ReadCase>& info) { return info.param.name; });

std::wstring Write(const std::function<void(CXmlWriter&)>& writes) {
    CTextStream stream(encUTF8);
    CXmlTextWriter writer(stream);
    writer.SetFormat(false);
    writer.Open();
    writes(writer);
    writer.Close();
    return stream.GetText();
}

// A collection of leaves that writes each one and leaves its count to the caller.
class CLeafCol : public CXmlCollection {
public:
    CLeafCol()
        : CXmlCollection(L"c", L"", 2, 3) {}
    void ToXml_Int(CXmlWriter* writer, bool, const wchar_t* namespaceURI,
                   const CSerializationContext& context, bool flag) const override {
        for (CXmlObjectBase* item : *this)
            CXmlObjectBase::ToXml_Int(item, writer, false, namespaceURI, context, flag);
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* current, const CSerializationContext&,
                             bool) override {
        return current;
    }
};

// A sequence and an all group check a collection's count before writing it, a choice does not; a
// class collection standing inline puts the attributes of its items on the parent.
TEST(ElementWrite, CollectionsAndInlineAttributes) {
    CSlots object;
    CSmartPtr<CLeafCol> leaves(new CLeafCol);
    object.slot[0].SetXmlCollection(leaves.Get());
    CSmartPtr<CXmlObjectBase> leaf = MakeLeaf(0, L"c");
    static_cast<CLeaf*>(leaf.Get())->id = 5;
    leaves->AppendItem(leaf.Get());
    const auto written = [&](const CElementInfo& member, const CSerializationContext& context = {}) {
        return Write([&](CXmlWriter& writer) { member.ElementToXml(context, &object, &writer); });
    };
    const std::wstring tooFew = L"The Minimum number of [c] elements allowed in this collection is 2";
    EXPECT_EQ(MessageOf<CQxValidationException>([&] { written(CElementInfoSeqCol(L"c", L"", 0)); }), tooFew);
    EXPECT_EQ(
        MessageOf<CQxValidationException>([&] { written(CElementInfoAllClsCol(L"c", L"", 0, etElement)); }),
        tooFew);
    EXPECT_EQ(written(CElementInfoChoiceAbsClsCol(L"c", L"", 0, etElement)), L"<c id=\"5\"/>");
    CSerializationContext ignoring;
    ignoring.SetIgnoreInvalidCollectionCounts(true);
    EXPECT_EQ(written(CElementInfoSeqCol(L"c", L"", 0), ignoring), L"<c id=\"5\"/>");

    leaves->AppendItem(MakeLeaf(0, L"c").Get()); // without an attribute to show
    const auto onParent = [&](const CElementInfo& member) {
        return Write([&](CXmlWriter& writer) {
            writer.WriteStartElement(L"p", L"");
            member.PseudoChildAttributeToXml(CSerializationContext(), &object, &writer);
            writer.WriteEndElement();
        });
    };
    EXPECT_EQ(onParent(CElementInfoSeqClsCol(L"c", L"", 0, etGroup)), L"<p id=\"5\"/>");
    EXPECT_EQ(onParent(CElementInfoAllAbsClsCol(L"c", L"", 0, etElement)), L"<p/>");
    leaves->Clear();
    EXPECT_EQ(written(CElementInfoChoiceAbsClsCol(L"c", L"", 0, etElement)), L"");
}

// Mandatory members refuse to write nothing; in an all group they report their absence afterwards,
// except a class member that may stand empty; optional members accept every call.
TEST(ElementValidate, MandatoryMembersReportTheirAbsence) {
    const CSerializationContext context;
    CSlots object;
    const std::unique_ptr<CElementInfo> mandatory[] = {
        std::make_unique<CElementInfoAllPrimMnd>(L"p", L"", 0, false, itI4, nullptr,
                                                 CWhitespaceUtils::wsCollapse, CPrimitiveRestrictions(),
                                                 nullptr),
        std::make_unique<CElementInfoAllEnumMnd>(L"e", L"", 0, false, ColourToText, TextToColour, nullptr),
        std::make_unique<CElementInfoAllAbsClsMnd>(L"d", L"", 0, etElement, MakeByType, 9),
        std::make_unique<CElementInfoAllClsMnd>(L"g", L"", 0, etGroup, MakeLeaf, 0, false),
        std::make_unique<CElementInfoAllUntpdMnd>(L"w", L"", 0, L"##any", L""),
    };
    for (const auto& member : mandatory) {
        EXPECT_TRUE(member->Validate(context, &object, true, true));
        EXPECT_FALSE(member->Validate(context, &object, false, false));
        EXPECT_EQ(MessageOf<CQxValidationException>([&] { member->Validate(context, &object, false, true); }),
                  L"Failed to find the mandatory element [" + member->GetName() + L"].");
        EXPECT_EQ(MessageOf<CQxInvalidParamException>(
                      [&] { Write([&](CXmlWriter& w) { member->ElementToXml(context, &object, &w); }); }),
                  L"The Property [" + member->GetName() + L"] is mandatory, it may not be NULL");
    }
    for (auto [kind, required, missing] :
         {std::tuple(etElement, false, false), std::tuple(etElement, true, true),
          std::tuple(etGroup, false, true), std::tuple(XmlElementType(2), false, false)}) {
        const CElementInfoAllClsMnd member(L"c", L"", 0, kind, MakeLeaf, 0, required);
        EXPECT_EQ(MessageOf<CQxValidationException>([&] {
                      member.Validate(context, &object, false, true);
                  }) == L"Failed to find the mandatory element [c].",
                  missing)
            << kind << required;
    }
    const std::unique_ptr<CElementInfo> optional[] = {
        std::make_unique<CElementInfoAllPrimOpt>(L"p", L"", 0, false, itI4, nullptr,
                                                 CWhitespaceUtils::wsCollapse, CPrimitiveRestrictions(),
                                                 nullptr),
        std::make_unique<CElementInfoAllClsOpt>(L"c", L"", 0, etElement, MakeLeaf, 0),
        std::make_unique<CElementInfoAllUntpdOpt>(L"w", L"", 0, L"##any", L""),
    };
    for (const auto& member : optional)
        for (bool found : {false, true})
            for (bool check : {false, true})
                EXPECT_TRUE(member->Validate(context, &object, found, check));
    // Members of sequences keep the base's refusal.
    EXPECT_EQ(MessageOf<CQxException>([&] {
                  CElementInfoSeqClsOpt(L"c", L"", 0, etElement, MakeLeaf, 0)
                      .Validate(context, &object, false, true);
              }),
              L"Not implemented, should never be called");
}

// An attribute wildcard adds what its rule admits to the collection the member holds, which must
// be a collection of attributes.
TEST(AttributeWildcard, TakesWhatItsRuleAdmitsIntoItsCollection) {
    const CSerializationContext context;
    const CAttributeInfoAny any(L"any", L"", 0, true, L"", L"##other", L"urn:t");
    CXmlDocument document;
    document.LoadXml(L"<r xmlns:t='urn:t' xmlns:o='urn:o' t:a='1' o:b='2'/>");
    const auto& attributes = document.GetDocumentElement()->GetAttributes();
    CSlots object;
    CSmartPtr<CAttributeCol> taken(new CAttributeCol(L"", L"##any", L""));
    object.slot[0].SetXmlCollection(taken.Get());
    EXPECT_FALSE(any.AttributeFromXml(context, &object, attributes[attributes.size() - 2]));
    EXPECT_TRUE(any.AttributeFromXml(context, &object, attributes.back()));
    ASSERT_EQ(taken->GetCount(), 1);
    EXPECT_EQ(taken->Item(0)->GetNamespace(), L"urn:o");

    object.slot[0].SetXmlCollection(new CElementCol(L"", L"##any", L"", 0, -1));
    EXPECT_EQ(MessageOf<CQxException>([&] { any.AttributeFromXml(context, &object, attributes.back()); }),
              L"Serialization Data Error : The collection should be a CAttributeCol, it was not!");
}

// The class tree generated code and casts rely on: repeated members of a kind are their group's
// plain collection member, and an enumeration collection in an all-group cannot be made.
static_assert(std::is_base_of<CElementInfoSeqCol, CElementInfoSeqUntpdCol>::value);
static_assert(std::is_base_of<CElementInfoChoiceCol, CElementInfoChoiceClsCol>::value);
static_assert(std::is_base_of<CElementInfoAllCol, CElementInfoAllAbsClsCol>::value);
static_assert(!std::is_base_of<CElementInfoAllCol, CElementInfoAllEnumCol>::value);
static_assert(std::is_abstract<CElementInfoAllEnumCol>::value);
static_assert(!std::is_constructible<CElementInfoChoiceClsOpt, const wchar_t*, const wchar_t*, int,
                                     XmlElementType, ClassFactoryFunction, int, bool>::value,
              "only mandatory class members take the required-content flag");

} // namespace
