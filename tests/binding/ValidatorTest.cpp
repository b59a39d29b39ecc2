#include "binding/support/Documents.h"
#include "binding/support/Trips.h"
#include "binding/support/Xmllint.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <gtest/gtest.h>

using namespace QxXmlLib16;
using namespace TestSchema;

namespace {

std::wstring Replace(std::wstring text, const std::wstring& from, const std::wstring& to) {
    text.replace(text.find(from), from.size(), to);
    return text;
}

// The innermost message without its path, and the innermost path that is set.
Documents::Failure FailureOf(const CQxException& e) {
    Documents::Failure failure;
    for (const CQxException* inner = &e; inner; inner = inner->GetInnerException()) {
        const std::wstring& message = inner->GetMessage();
        failure.message = message.substr(0, message.find(L"\nPath: "));
        if (!inner->GetPath().empty()) failure.path = inner->GetPath();
    }
    return failure;
}

Documents::Failure LoadFailure(const std::wstring& document) {
    CSmartPtr<CTrip> trip(new CTrip());
    try {
        trip->FromXml(document.c_str());
    } catch (const CQxException& e) {
        EXPECT_EQ(0u, e.GetFullMessage().find(L"Failed to process the element.")) << e.GetFullMessage();
        return FailureOf(e);
    }
    return {L"(no exception)", L""};
}

TEST(Validator, WhatWeWriteIsValid) {
    for (auto make : {Trips::Minimal, Trips::Full, Trips::NilContact})
        for (bool formatted : {false, true}) {
            const XmllintResult result = ValidateWithXmllint(make()->ToXml(true, formatted));
            EXPECT_TRUE(result.valid) << result.output;
        }
}

TEST(Validator, HandWrittenMinimalDocumentIsValidAndLoads) {
    const XmllintResult result = ValidateWithXmllint(Documents::Trip());
    EXPECT_TRUE(result.valid) << result.output;
    EXPECT_EQ(L"(no exception)", LoadFailure(Documents::Trip()).message);
}

struct InvalidCase {
    const char* name;
    std::wstring document;
    std::wstring message;
    std::wstring path;
};

std::vector<InvalidCase> InvalidCases() {
    const std::wstring body = Documents::MinimalBody();
    const std::wstring trip = Documents::Trip();
    return {
        {"WrongOrder",
         Documents::Trip(L" id=\"T1\"", Replace(body, L"<title>Coast</title><mode>walk</mode>",
                                                L"<mode>walk</mode><title>Coast</title>")),
         L"Failed to find the required child element [title].", L"/trip"},
        {"MissingElement", Documents::Trip(L" id=\"T1\"", Replace(body, L"<mode>walk</mode>", L"")),
         L"Failed to find the required child element [mode].", L"/trip"},
        {"MissingElementInChild", Documents::Trip(L" id=\"T1\"", Replace(body, L"<label>Bay</label>", L"")),
         L"Failed to find the required child element [label].", L"/trip/start"},
        {"MissingAttribute", Documents::Trip(L""), L"Failed to find the required Attribute [id].", L"/trip"},
        {"MissingAttributeInChild", Documents::Trip(L" id=\"T1\"", Replace(body, L" lon=\"-4\"", L"")),
         L"Failed to find the required Attribute [lon].", L"/trip/start"},
        {"UnknownAttribute", Documents::Trip(L" id=\"T1\" colour=\"red\""), L"Unexpected Attribute found.",
         L"/trip/@colour"},
        {"UnknownElementAtEnd", Documents::Trip(L" id=\"T1\"", body + L"<extra/>"),
         L"Failed read all the elements held within the element [trip]. The unexpected element [extra] "
         L"remains "
         L"un processed",
         L"/trip"},
        {"OutOfTypeRange", Documents::Trip(L" id=\"T1\"", body + L"<readings i4=\"1\" i1=\"200\"/>"),
         L"The value [200] is to large to fit in a i1", L"/trip/readings/@i1"},
        {"NotANumber", Documents::Trip(L" id=\"T1\"", Replace(body, L"<distance>12.5", L"<distance>far")),
         L"The string representing a Decimal, contained an invalid char at position 0 [far].",
         L"/trip/distance"},
        {"BadBoolean",
         Documents::Trip(L" id=\"T1\"", Replace(body, L"<distance>", L"<distance approx=\"maybe\">")),
         L"A Boolean Value read from an XML document was invalid [maybe]. Valid values are 'true', 'false', "
         L"'1', "
         L"or '0'",
         L"/trip/distance/@approx"},
        {"UnknownEnumeration", Documents::Trip(L" id=\"T1\"", Replace(body, L"walk", L"fly")),
         L"The value [fly] is not a valid TravelMode", L"/trip/mode"},
        {"NilOnNonNillablePrimitive",
         Documents::Trip(L" id=\"T1\"", Replace(body, L"<title>Coast</title>", L"<title xsi:nil=\"true\"/>")),
         L"Invalid use of 'nil' attribute in non-nillable element.", L"/trip/title"},
        {"NilOnNonNillableClass",
         Documents::Trip(L" id=\"T1\"", Replace(body, L"<start ", L"<start xsi:nil=\"true\" ")),
         L"Invalid use of 'nil' attribute in non-nillable element.", L"/trip/start"},
        {"BadNilValue",
         Documents::Trip(L" id=\"T1\"", Replace(body, L"<contact>", L"<contact xsi:nil=\"yes\">")),
         L"Unexpected Value [yes] for 'nil' Attribute found.", L"/trip/contact/@xsi:nil"},
        {"WrongNamespace", Replace(trip, L"urn:qx:test:trip", L"urn:qx:test:other"),
         L"Failed to find the required child element [title].", L"/trip"},
        {"UnknownDerivedType",
         Documents::Trip(
             L" id=\"T1\"",
             Replace(body, L"<contact>",
                     L"<stop xsi:type=\"Castle\" lat=\"1\" lon=\"1\"><label>x</label></stop><contact>")),
         L"Failed to find a suitable substitution element for [stop].", L"/trip"},
    };
}

class InvalidDocument : public testing::TestWithParam<InvalidCase> {};

TEST_P(InvalidDocument, RejectedByXmllintAndByUs) {
    const InvalidCase& c = GetParam();
    const XmllintResult result = ValidateWithXmllint(c.document);
    EXPECT_FALSE(result.valid) << "xmllint accepted it";
    const Documents::Failure failure = LoadFailure(c.document);
    EXPECT_EQ(c.message, failure.message);
    EXPECT_EQ(c.path, failure.path);
}

INSTANTIATE_TEST_SUITE_P(Cases, InvalidDocument, testing::ValuesIn(InvalidCases()),
                         [](const testing::TestParamInfo<InvalidCase>& info) { return info.param.name; });

// Generated setters check the facets before storing, so an object never holds a value that breaks
// one. A value stored without a setter is still refused when the object is written.
TEST(Validator, FacetViolationsAreRefusedBySettersAndOnWriting) {
    struct Case {
        std::function<void(CTrip&)> breakIt;
        std::wstring message;
    } cases[] = {
        {[](CTrip& t) { t.SetTitle(std::wstring(41, L'x')); },
         L"Invalid Value for title [" + std::wstring(41, L'x') + L"]."},
        {[](CTrip& t) { t.SetId(L"X1"); }, L"Invalid Value for id [X1]."},
        {[](CTrip& t) { t.GetStart()->SetLat(CDecimal(L"91")); }, L"Invalid Value for lat [91]."},
        {[](CTrip& t) { t.SetDays(31); }, L"Invalid Value for days [31]"},
        {[](CTrip& t) { t.GetContact()->SetEmail(L"ANN"); }, L"Invalid Value for email [ANN]."},
    };
    for (const Case& c : cases) {
        CSmartPtr<CTrip> trip = Trips::Full();
        const std::wstring before = trip->ToXml();
        std::wstring message = L"(no exception)";
        try {
            c.breakIt(*trip);
        } catch (const CQxException& e) {
            message = FailureOf(e).message;
        }
        EXPECT_EQ(c.message, message);
        EXPECT_EQ(before, trip->ToXml()) << "the refused value was stored";
    }

    // Readings whose dec takes any value, as a member stored without its setter would.
    struct CUncheckedReadings : CReadings {
        int AccessProperty(int propertyNumber, bool read, QxVariant& value) override {
            if (propertyNumber != itDecimal) return CReadings::AccessProperty(propertyNumber, read, value);
            read ? void(value = m_dec) : void(m_dec = value);
            return 0;
        }
        QxVariant m_dec;
    };
    CSmartPtr<CTrip> trip = Trips::Full();
    CSmartPtr<CUncheckedReadings> readings(new CUncheckedReadings());
    readings->m_dec.FromString(L"1.234", itDecimal, CWhitespaceUtils::wsCollapse);
    trip->SetReadings(readings.Get());
    std::wstring message = L"(no exception)";
    try {
        trip->ToXml();
    } catch (const CQxException& e) {
        message = FailureOf(e).message;
    }
    EXPECT_EQ(L"Invalid Value for dec [1.234].", message);
}

} // namespace
