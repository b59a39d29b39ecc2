// Every document the bindings must refuse, with the message and XPath the loader reports, checked
// against xmllint's verdict on the same document; and what each leniency of the context lets
// through. A row that loads expects "(no exception)".

#include "binding/support/GroupsSchema.h"
#include "binding/support/Schemas.h"
#include "support/Documents.h"
#include "support/Failure.h"

#include <gtest/gtest.h>

using namespace QxXmlLib16;

namespace {

using Option = void (*)(CSerializationContext&);

enum class Xmllint { Refuses, Accepts, Unused };

struct Case {
    const char* name;
    Schema schema;
    // The schema's valid document with one replacement made in it.
    const wchar_t* from;
    std::wstring to;
    Failure expected;
    Option leniency = nullptr; // applied to the context of this load; xmllint is then not asked
    Xmllint xmllint = Xmllint::Refuses;
};

const Failure kLoads{L"(no exception)", L""};

std::wstring Leftover(const wchar_t* parent, const wchar_t* element) {
    return FormatString(L"Failed read all the elements held within the element [%ls]. The unexpected element "
                        L"[%ls] remains un processed",
                        parent, element);
}
std::wstring Missing(const wchar_t* element) {
    return FormatString(L"Failed to find the required child element [%ls].", element);
}
std::wstring MissingAttribute(const wchar_t* attribute) {
    return FormatString(L"Failed to find the required Attribute [%ls].", attribute);
}
std::wstring Count(const wchar_t* bound, const wchar_t* element, int count) {
    return FormatString(L"The %ls number of [%ls] elements allowed in this collection is %d", bound, element,
                        count);
}
std::wstring Invalid(const wchar_t* name, const wchar_t* value) {
    return FormatString(L"Invalid Value for %ls [%ls]", name, value);
}
std::wstring NotSubstituted(const wchar_t* element) {
    return FormatString(L"Failed to find a suitable substitution element for [%ls].", element);
}
std::wstring NotValid(const wchar_t* value, const wchar_t* type) {
    return FormatString(L"The value [%ls] is not a valid %ls", value, type);
}
const std::wstring kNoChoice = L"No child elements within the element [pick] were populated. The element "
                               L"represents a choice, so one and only one element should be populated. The "
                               L"element contained no sutable child elements";
const std::wstring kNotNillable = L"Invalid use of 'nil' attribute in non-nillable element.";
const std::wstring kUnexpectedAttribute = L"Unexpected Attribute found.";
const std::wstring kOtherMissing =
    L"Failed to find the required element from namespace [urn:qx:test:content].";
const wchar_t kOwn[] = L"<own><t/></own>";

const Option kUnknownElements = [](CSerializationContext& c) { c.SetIgnoreUnknownElements(true); };
const Option kMissingMandatory = [](CSerializationContext& c) { c.SetIgnoreMissingMandatoryElements(true); };
const Option kNamespaces = [](CSerializationContext& c) { c.SetIgnoreNamespaces(true); };
const Option kUnknownAttributes = [](CSerializationContext& c) { c.SetIgnoreUnknownAttributes(true); };
const Option kMissingChoice = [](CSerializationContext& c) { c.SetIgnoreMissingChoice(true); };
const Option kCounts = [](CSerializationContext& c) { c.SetIgnoreInvalidCollectionCounts(true); };
const Option kNoNamespaces = [](CSerializationContext& c) { c.SetSchemaType(stNoNamespaces); };

const std::wstring kReadings = L"<readings i4=\"1\"";
const Xmllint kAccepts = Xmllint::Accepts;
const Xmllint kUnused = Xmllint::Unused;
const std::wstring kTitle41 = L"<title>" + std::wstring(41, L'x');
const std::wstring kPick3 = L"/groups/pick[3]";

std::vector<Case> Cases() {
    using S = Schema;
    // clang-format off
    return {
        // ---- Sequences, attributes and values ----------------------------------------------------
        {"WrongOrder", S::Trip, L"<title>Coast</title><mode>walk</mode>", L"<mode>walk</mode><title>Coast</title>",
         {Missing(L"title"), L"/trip"}},
        {"MissingElement", S::Trip, L"<mode>walk</mode>", L"", {Missing(L"mode"), L"/trip"}},
        {"MissingElementIgnored", S::Trip, L"<mode>walk</mode>", L"", kLoads, kMissingMandatory},
        {"MissingAttribute", S::Trip, L" id=\"T1\"", L"", {MissingAttribute(L"id"), L"/trip"}},
        {"MissingAttributeInChild", S::Trip, L" lon=\"-4\"", L"", {MissingAttribute(L"lon"), L"/trip/start"}},
        {"UnknownAttribute", S::Trip, L" id=", L" colour=\"red\" id=", {kUnexpectedAttribute, L"/trip/@colour"}},
        {"UnknownAttributeIgnored", S::Trip, L" id=", L" colour=\"red\" id=", kLoads, kUnknownAttributes},
        {"AttributeOnValueElement", S::Trip, L"<title>", L"<title a=\"1\">", {kUnexpectedAttribute, L"/trip/title/@a"}},
        {"UnknownElementAtEnd", S::Trip, L"</trip>", L"<extra/></trip>", {Leftover(L"trip", L"extra"), L"/trip"}},
        {"UnknownElementBetween", S::Trip, L"<mode>", L"<extra>x</extra><mode>", {Missing(L"mode"), L"/trip"}},
        {"UnknownElementSkipped", S::Trip, L"<mode>", L"<extra>x</extra><mode>", kLoads, kUnknownElements},
        // Skipping does not help a member that is missing at the end of its parent.
        {"MissingAtEndNotSkipped", S::Trip, L"<contact><email>ann@example.org</email></contact>", L"<x/>",
         {Missing(L"contact"), L"/trip"}, kUnknownElements},
        {"NotANumber", S::Trip, L"<distance>12.5", L"<distance>far",
         {L"The string representing a Decimal, contained an invalid char at position 0 [far].", L"/trip/distance"}},
        {"BadDate", S::Trip, L"</trip>", kReadings + L" date=\"2023-02-29\"/></trip>",
         {L"Invalid Day [29] (1 <= day <= days in month)", L"/trip/readings/@date"}},
        {"LeapDayOfCentury", S::Trip, L"</trip>", kReadings + L" date=\"2000-02-29\"/></trip>", kLoads, nullptr, kAccepts},
        {"UnknownEnumeration", S::Trip, L"walk", L"fly", {NotValid(L"fly", L"TravelMode"), L"/trip/mode"}},
        // ---- Nil ---------------------------------------------------------------------------------
        {"NilOnNonNillablePrimitive", S::Trip, L"<title>Coast</title>", L"<title xsi:nil=\"true\"/>",
         {kNotNillable, L"/trip/title"}},
        // A false xsi:nil, and a nil in any case, are accepted, which a schema validator does not do.
        {"NilFalseOnNonNillable", S::Trip, L"<title>", L"<title xsi:nil=\"false\">", kLoads, nullptr, kUnused},
        {"NilInAnyCase", S::Trip, L"<contact><email>ann@example.org</email>", L"<contact xsi:nil=\"TRUE\">", kLoads,
         nullptr, kUnused},
        {"NilOnNonNillableClass", S::Trip, L"<start ", L"<start xsi:nil=\"1\" ", {kNotNillable, L"/trip/start"}},
        {"BadNilValue", S::Trip, L"<contact>", L"<contact xsi:nil=\"yes\">",
         {L"Unexpected Value [yes] for 'nil' Attribute found.", L"/trip/contact/@xsi:nil"}},
        {"BadNilValueOfValue", S::Trip, L"</title>", L"</title><note xsi:nil=\"maybe\"/>",
         {L"Unexpected Value [maybe] for 'nil' Attribute found.", L"/trip/note/@xsi:nil"}},
        // ---- Namespaces --------------------------------------------------------------------------
        {"WrongNamespace", S::Trip, L"urn:qx:test:trip", L"urn:qx:test:other", {Missing(L"title"), L"/trip"}},
        {"WrongNamespaceIgnored", S::Trip, L"urn:qx:test:trip", L"urn:qx:test:other", kLoads, kNamespaces},
        {"NoNamespacesAtAll", S::Trip,
         L" xmlns=\"urn:qx:test:trip\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"", L"", kLoads,
         kNoNamespaces},
        // With namespaces ignored an enumerated attribute is taken from any namespace, a primitive
        // one only from its own.
        {"ForeignEnumAttributeIgnored", S::Trip, L" id=", L" xmlns:o=\"urn:o\" o:pace=\"fast\" id=", kLoads, kNamespaces},
        {"ForeignPrimitiveAttribute", S::Trip, L" id=", L" xmlns:o=\"urn:o\" o:version=\"3\" id=",
         {kUnexpectedAttribute, L"/trip/@o:version"}, kNamespaces},
        {"UnknownDerivedType", S::Trip, L"<contact>",
         L"<stop xsi:type=\"Castle\" lat=\"1\" lon=\"1\"><label>x</label></stop><contact>",
         {NotSubstituted(L"stop"), L"/trip"}},
        // ---- Facets, through the checking setters, at the offending node -------------------------
        {"ElementFacet", S::Trip, L"<title>Coast", kTitle41, {Invalid(L"title", kTitle41.c_str() + 7) + L".",
         L"/trip/title"}},
        {"AttributeFacet", S::Trip, L"T1", L"X1", {Invalid(L"id", L"X1") + L".", L"/trip/@id"}},
        {"AttributeFacetInChild", S::Trip, L"lat=\"50.1\"", L"lat=\"91\"", {Invalid(L"lat", L"91") + L".",
         L"/trip/start/@lat"}},
        {"AttributeFacetOfNumber", S::Trip, L"</trip>", L"<readings i4=\"1000\"/></trip>",
         {Invalid(L"i4", L"1000"), L"/trip/readings/@i4"}},
        {"ValuesOnTheBounds", S::Trip, L"</trip>",
         L"<readings i4=\"999\" yr=\"1900\" u1=\"99\" dec=\"123.45\" hex=\"01020304\" b64=\"AQ==\"/></trip>", kLoads,
         nullptr, kAccepts},
        // ---- Choices and all groups --------------------------------------------------------------
        {"ChoiceWithNone", S::Groups, L"<pick><count>5</count></pick>", L"<pick/>", {kNoChoice, kPick3}},
        {"ChoiceWithNoneAllowed", S::Groups, L"<pick><count>5</count></pick>", L"<pick/>", kLoads, kMissingChoice},
        // Unknown elements do not excuse a missing choice, nor a missing all-group member.
        {"ChoiceWithNoneNotSkipped", S::Groups, L"<pick><count>5</count></pick>", L"<pick/>", {kNoChoice, kPick3},
         kUnknownElements},
        {"ChoiceWithTwo", S::Groups, L"<count>5</count>", L"<count>5</count><colour>red</colour>",
         {Leftover(L"pick", L"colour"), kPick3}},
        {"ChoiceWithTwoSkipped", S::Groups, L"<count>5</count>", L"<count>5</count><colour>red</colour>", kLoads,
         kUnknownElements},
        {"AllMemberMissing", S::Groups, L"<count>7</count>", L"",
         {L"Failed to find the mandatory element [count].", L"/groups/bag"}},
        {"AllMemberMissingNotSkipped", S::Groups, L"<count>7</count>", L"",
         {L"Failed to find the mandatory element [count].", L"/groups/bag"}, kUnknownElements},
        {"AllMemberMissingIgnored", S::Groups, L"<count>7</count>", L"", kLoads, kMissingMandatory},
        {"AllMemberTwice", S::Groups, L"<note>n</note>", L"<note>n</note><note>m</note>",
         {Leftover(L"bag", L"note"), L"/groups/bag"}},
        {"AllOptionalMembersAbsent", S::Groups,
         L"<more>m</more><tint>green</tint><note>n</note><figure xsi:type=\"Square\" side=\"3\"/><spare id=\"2\"/>",
         L"", kLoads, nullptr, kAccepts},
        {"ChoiceFacet", S::Groups, L"<count>5</count>", L"<count>100</count>", {Invalid(L"count", L"100"),
         kPick3 + L"/count"}},
        {"ChoiceUnknownEnumeration", S::Groups, L"<colour>blue</colour>", L"<colour>pink</colour>",
         {NotValid(L"pink", L"Colour"), L"/groups/pick[4]/colour"}},
        {"AttributeUnknownEnumeration", S::Groups, L"colour=\"blue\"", L"colour=\"pink\"",
         {NotValid(L"pink", L"Colour"), L"/groups/figure[2]/@colour"}},
        {"ChoiceCollectionTooShort", S::Groups, L"<colour>green</colour></palette>", L"</palette>",
         {Count(L"Minimum", L"colour", 2), L"/groups/palette[2]"}},
        {"ChoiceCollectionTooLong", S::Groups, L"<colour>red</colour><colour>green</colour>",
         L"<colour>red</colour><colour>green</colour><colour>red</colour><colour>blue</colour>",
         {Count(L"Maximum", L"colour", 3), L"/groups/palette[2]"}},
        {"ChoiceCollectionThenAnother", S::Groups, L"<item id=\"5\"/>", L"<count>5</count>",
         {Leftover(L"palette", L"count"), L"/groups/palette[1]"}},
        {"RepeatedChoiceThenAnother", S::Groups, L"<count>3</count>", L"<colour>red</colour>",
         {Leftover(L"palette", L"colour"), L"/groups/palette[3]"}},
        {"RepeatedChoiceFacet", S::Groups, L"<count>3</count>", L"<count>-3</count>",
         {Invalid(L"count", L"-3"), L"/groups/palette[3]/count[2]"}},
        {"ChoiceSizesTooMany", S::Groups, L"<size>2</size>", L"<size>2</size><size>3</size><size>4</size><size>5</size>",
         {Count(L"Maximum", L"size", 4), L"/groups/palette[5]"}},
        {"ChoiceSizesThenWildcard", S::Groups, L"<size>2</size>", L"<size>2</size><o:z/>",
         {Leftover(L"palette", L"z"), L"/groups/palette[5]"}},
        {"SequenceRepeatedChoiceThenAnother", S::Groups, L"<count>8</count>", L"<colour>red</colour>",
         {Leftover(L"groups", L"colour"), L"/groups"}},
        {"AbstractWithoutType", S::Groups, L"<main xsi:type=\"Circle\"", L"<main", {NotSubstituted(L"main"), L"/groups"}},
        {"AbstractCollectionWithoutType", S::Groups, L"<figure xsi:type=\"Circle\"", L"<figure",
         {NotSubstituted(L"figure"), L"/groups"}},
        {"InlineGroupAttributeMissing", S::Groups, L" signed=\"true\"", L"",
         {MissingAttribute(L"signed"), L"/groups/label"}},
        {"InlineGroupContentMissing", S::Groups, L"<by>me</by>", L"", {Missing(L"Stamp"), L"/groups/label"}},
        {"CrateAbstractWithoutType", S::Crate, L"<shape xsi:type=\"Circle\"", L"<shape",
         {NotSubstituted(L"shape"), L"/crate"}, nullptr, kUnused},
        {"CrateFacet", S::Crate, L"<count>3</count>", L"<count>100</count>", {Invalid(L"count", L"100"),
         L"/crate/count[2]"}, nullptr, kUnused},
        {"CrateItemAttributeMissing", S::Crate, L"<item id=\"2\"/>", L"<item/>",
         {MissingAttribute(L"id"), L"/crate/item[2]"}, nullptr, kUnused},
        {"CrateUnknownElement", S::Crate, L"<o:x/>", L"<x/>", {Leftover(L"crate", L"x"), L"/crate"}, nullptr, kUnused},
        // A collection's items lie anywhere in an all group, so its count is checked once all are read.
        {"CrateTooFewItems", S::Crate,
         L"<item id=\"1\"/><o:x/><shape xsi:type=\"Circle\" radius=\"1\"/><pick><count>2</count></pick><item id=\"2\"/>",
         L"<o:x/>", {Count(L"Minimum", L"item", 1), L"/crate"}, nullptr, kUnused},
        {"CrateTooFewItemsIgnored", S::Crate, L"<item id=\"1\"/>", L"", kLoads, kCounts},
        {"CrateTooManyItems", S::Crate, L"<item id=\"2\"/>",
         L"<item id=\"2\"/><item id=\"3\"/><count>4</count><item id=\"4\"/>", {Count(L"Maximum", L"item", 3), L"/crate"},
         nullptr, kUnused},
        {"CrateEmptyChoice", S::Crate, L"<pick><count>2</count></pick>", L"<pick/>", {kNoChoice, L"/crate/pick"},
         nullptr, kUnused},
        // ---- Typed collections and wildcards -----------------------------------------------------
        {"TooFewI4", S::Content, L"<i4>1</i4>", L"", {Count(L"Minimum", L"i4", 1), L"/bag"}},
        {"TooFewI4Ignored", S::Content, L"<i4>1</i4>", L"", kLoads, kCounts},
        {"TooManyI4", S::Content, L"<i4>1</i4>", L"<i4>1</i4><i4>2</i4><i4>3</i4><i4>4</i4>",
         {Count(L"Maximum", L"i4", 3), L"/bag"}},
        {"DateTimeInADateList", S::Content, L"<i4>1</i4>",
         L"<i4>1</i4><date>2024-01-01</date><date>2024-01-02T03:04:05</date>",
         {L"Invalid Date ('T' not allowed)", L"/bag/date[2]"}},
        {"ItemFacet", S::Content, L"<i4>1</i4>", L"<i4>1</i4><i4>101</i4>", {Invalid(L"i4", L"101"), L"/bag/i4[2]"}},
        {"UnknownShade", S::Content, L"<i4>1</i4>", L"<i4>1</i4><shade>pink</shade>",
         {NotValid(L"pink", L"Shade"), L"/bag/shade"}},
        {"OtherGivenTheTargetNamespace", S::Content, L"<o:x/>", L"<x/>", {kOtherMissing, L"/bag"}},
        {"OtherGivenTheTargetNamespaceNotSkipped", S::Content, L"<o:x/>", L"<x/>", {kOtherMissing, L"/bag"},
         kUnknownElements},
        // "##other" here admits unqualified content, which a schema validator refuses.
        {"OtherAdmitsUnqualified", S::Content, L"<o:x/>", L"<x xmlns=\"\"/>", kLoads},
        {"ListGivenAnotherUri", S::Content, L"<o:x/>", L"<o:x/><c:x xmlns:c=\"urn:qx:c\"/>", {Missing(L"own"), L"/bag"}},
        {"ListGivenAnotherUriSkipped", S::Content, L"<o:x/>", L"<o:x/><c:x xmlns:c=\"urn:qx:c\"/>", kLoads,
         kUnknownElements},
        {"TargetNamespaceGivenAnother", S::Content, L"<t/>", L"<o:t/>", {kOtherMissing, L"/bag/own"}},
        {"OwnMissingAfterOptionalWildcards", S::Content, kOwn, L"", {Missing(L"own"), L"/bag"}},
        {"AttributeOfTheTargetNamespace", S::Content, L">", L" xmlns:c=\"urn:qx:test:content\" c:z=\"1\">",
         {kUnexpectedAttribute, L"/bag/@z"}},
        {"UnqualifiedAttributeIsOther", S::Content, L">", L" z=\"1\">", kLoads},
        // ---- GPX: the bounds of its simple types, and its extensions --------------------------------
        {"GpxLatitudeBounds", S::Gpx, L"</gpx>", L"<wpt lat=\"-90.0\" lon=\"0\"/><wpt lat=\"90\" lon=\"0\"/></gpx>",
         kLoads, nullptr, kAccepts},
        {"GpxBounds", S::Gpx, L"</gpx>",
         L"<wpt lat=\"0\" lon=\"-180\"><magvar>0</magvar><sat>0</sat><dgpsid>1023</dgpsid></wpt></gpx>", kLoads,
         nullptr, kAccepts},
        {"GpxExtensions", S::Gpx, L"</gpx>",
         L"<extensions><x:a xmlns:x=\"urn:x\" x:b=\"1\">t<x:c/></x:a></extensions></gpx>", kLoads, nullptr, kAccepts},
        {"GpxExtensionsOfGpx", S::Gpx, L"</gpx>", L"<extensions><name>n</name></extensions></gpx>",
         {Leftover(L"extensions", L"name"), L"/gpx/extensions"}},
    };
    // clang-format on
}

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

class InvalidDocument : public testing::TestWithParam<Case> {};

// The markup at line and column of text, without its prefix: "<name" for a start tag, "name" for
// an attribute (which follows a blank).
std::wstring MarkupAt(const std::wstring& text, unsigned long line, unsigned long column) {
    size_t at = 0;
    for (unsigned long l = 1; l < line && at < text.size(); ++l)
        at = text.find(L'\n', at) + 1; // npos + 1 is 0: no such line
    if (line == 0 || (line > 1 && at == 0) || column == 0) return L"(no such position)";
    at += column - 1;
    if (at >= text.size()) return L"(beyond the text)";
    const bool tag = text[at] == L'<';
    if (!tag && (at == 0 || text[at - 1] != L' ')) return L"(inside a name or value)";
    const size_t begin = tag ? at + 1 : at;
    const std::wstring name = text.substr(begin, text.find_first_of(L" \t\n=/>", begin) - begin);
    return (tag ? L"<" : L"") + name.substr(name.find(L':') + 1);
}

// What MarkupAt finds where the node a path names begins: "<b" for "/a/p:b[2]", "b" for "/a/@p:b".
std::wstring MarkupOf(const std::wstring& path) {
    std::wstring step = path.substr(path.rfind(L'/') + 1);
    const bool attribute = !step.empty() && step[0] == L'@';
    step = step.substr(attribute ? 1 : 0, step.find(L'[') - (attribute ? 1 : 0));
    return (attribute ? L"" : L"<") + step.substr(step.find(L':') + 1);
}

TEST_P(InvalidDocument, RefusedAtItsNodeAsXmllintRefusesIt) {
    const Case& c = GetParam();
    CSerializationContext context;
    if (c.leniency) c.leniency(context);
    const std::wstring document = Edited(c.schema, c.from, c.to);
    const CSmartPtr<CXmlObjectBase> root = NewRoot(c.schema);
    try {
        root->FromXml(document.c_str(), context);
        EXPECT_EQ(kLoads, c.expected);
    } catch (const CQxException& e) {
        EXPECT_EQ(FailureOf(e), c.expected);
        // The position points at the node the path names.
        EXPECT_EQ(MarkupAt(document, e.GetLine(), e.GetColumn()), MarkupOf(c.expected.path))
            << e.GetLine() << ":" << e.GetColumn();
    }
    if (!c.leniency && c.xmllint != Xmllint::Unused) {
        EXPECT_EQ(Documents::XmllintErrors(document, SchemaFile(c.schema)).empty(),
                  c.xmllint == Xmllint::Accepts);
    }
}

INSTANTIATE_TEST_SUITE_P(Corpus, InvalidDocument, testing::ValuesIn(Cases()),
                         [](const testing::TestParamInfo<Case>& info) { return info.param.name; });

// A refused value is reported by the member's descriptor at the offending node, the element or the
// attribute, with the setter's reason inside; every level of the document adds its own wrapper.
TEST(InvalidDocument, ChainNamesTheDescriptorAndTheSetter) {
    const struct {
        std::wstring document, wrapper, path;
    } cases[] = {
        {Edited(Schema::Trip, L"<title>Coast", kTitle41), L"Failed to set the property value.",
         L"/trip/title"},
        {Edited(Schema::Trip, L"T1", L"X1"), L"Failed to set the property value [id].", L"/trip/@id"},
    };
    for (const auto& c : cases) {
        const CSmartPtr<CXmlObjectBase> trip = NewRoot(Schema::Trip);
        try {
            trip->FromXml(c.document.c_str());
            ADD_FAILURE() << "loaded";
        } catch (const CQxException& e) {
            EXPECT_EQ(e.GetMessage(), L"Failed to process the element.\nPath: " + c.path);
            const CQxException* wrapper = &e;
            while (wrapper->GetInnerException()->GetInnerException())
                wrapper = wrapper->GetInnerException();
            EXPECT_EQ(wrapper->GetMessage(), c.wrapper + L"\nPath: " + c.path);
            EXPECT_EQ(wrapper->GetInnerException()->GetPath(), L"");
        }
    }
}

// Real exports that break the schema are refused where they break it.
TEST(InvalidDocument, RealExportsAreRefusedAtTheOffendingNode) {
    const struct {
        const char* file;
        Failure expected;
    } cases[] = {
        {"gpx/invalid/endomondo-metadata-order.gpx", {Leftover(L"metadata", L"name"), L"/gpx/metadata"}},
        {"gpx/invalid/osmand-empty-ele.gpx", {Leftover(L"trkpt", L"ele"), L"/gpx/trk/trkseg/trkpt[1]"}},
    };
    for (const auto& c : cases) {
        const std::string path = Documents::Shared(c.file);
        EXPECT_NE(Documents::XmllintFileErrors(path, SchemaFile(Schema::Gpx)), "") << c.file;
        const CSmartPtr<CXmlObjectBase> gpx = NewRoot(Schema::Gpx);
        EXPECT_EQ(FailureOf([&] { gpx->FromXmlFile(std::wstring(path.begin(), path.end()).c_str()); }),
                  c.expected)
            << c.file;
    }
}

} // namespace
