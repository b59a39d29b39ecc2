#include "binding/support/Documents.h"
#include "binding/support/TestSchema.h"
#include "binding/support/Xmllint.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <gtest/gtest.h>

#include <vector>

using namespace QxXmlLib16;
using namespace TestSchema;

namespace {

std::wstring Replace(std::wstring text, const std::wstring& from, const std::wstring& to) {
    text.replace(text.find(from), from.size(), to);
    return text;
}

struct Link {
    std::wstring message; // without its path
    std::wstring path;
};

// The exception chain, outermost first.
std::vector<Link> ChainOf(const CQxException& e) {
    std::vector<Link> chain;
    for (const CQxException* link = &e; link; link = link->GetInnerException()) {
        const std::wstring& message = link->GetMessage();
        chain.push_back({message.substr(0, message.find(L"\nPath: ")), link->GetPath()});
    }
    return chain;
}

struct FacetCase {
    const char* name;
    std::wstring document;
    std::wstring wrapper; // the descriptor's message, at the XPath of the offending node
    std::wstring path;
    std::wstring violation; // the setter's message
};

const std::wstring kElementWrapper = L"Failed to set the property value.";

std::wstring AttributeWrapper(const wchar_t* name) {
    return FormatString(L"Failed to set the property value [%ls].", name);
}

std::wstring WithReadings(const std::wstring& attributes) {
    return Documents::Trip(L" id=\"T1\"",
                           Documents::MinimalBody() + L"<readings i4=\"1\"" + attributes + L"/>");
}

std::vector<FacetCase> FacetCases() {
    const std::wstring body = Documents::MinimalBody();
    const std::wstring longTitle(41, L'x');
    return {
        {"ElementMaxLength", Documents::Trip(L" id=\"T1\"", Replace(body, L"Coast", longTitle)),
         kElementWrapper, L"/trip/title", L"Invalid Value for title [" + longTitle + L"]."},
        {"ElementMaxInclusive",
         Documents::Trip(L" id=\"T1\"", Replace(body, L"</title>", L"</title><days>31</days>")),
         kElementWrapper, L"/trip/days", L"Invalid Value for days [31]"},
        {"ElementPatternInChild", Documents::Trip(L" id=\"T1\"", Replace(body, L"ann@example.org", L"ANN")),
         kElementWrapper, L"/trip/contact/email", L"Invalid Value for email [ANN]."},
        {"AttributePattern", Documents::Trip(L" id=\"X1\""), AttributeWrapper(L"id"), L"/trip/@id",
         L"Invalid Value for id [X1]."},
        {"AttributeBoundInChild",
         Documents::Trip(L" id=\"T1\"", Replace(body, L"lat=\"50.1\"", L"lat=\"91\"")),
         AttributeWrapper(L"lat"), L"/trip/start/@lat", L"Invalid Value for lat [91]."},
        {"MaxExclusive", Documents::Trip(L" id=\"T1\"", body + L"<readings i4=\"1000\"/>"),
         AttributeWrapper(L"i4"), L"/trip/readings/@i4", L"Invalid Value for i4 [1000]"},
        {"MinInclusive", WithReadings(L" yr=\"1899\""), AttributeWrapper(L"yr"), L"/trip/readings/@yr",
         L"Invalid Value for yr [1899]"},
        {"RealMinInclusive", WithReadings(L" r4=\"-1\""), AttributeWrapper(L"r4"), L"/trip/readings/@r4",
         L"Invalid Value for r4 [-1.000000]"},
        {"IntegerTotalDigits", WithReadings(L" u1=\"100\""), AttributeWrapper(L"u1"), L"/trip/readings/@u1",
         L"Invalid Value for u1 [100]"},
        {"DecimalTotalDigits", WithReadings(L" dec=\"12345.6\""), AttributeWrapper(L"dec"),
         L"/trip/readings/@dec", L"Invalid Value for dec [12345.6]."},
        {"DecimalFractionDigits", WithReadings(L" dec=\"1.234\""), AttributeWrapper(L"dec"),
         L"/trip/readings/@dec", L"Invalid Value for dec [1.234]."},
        {"BinaryMaxLength", WithReadings(L" hex=\"0102030405\""), AttributeWrapper(L"hex"),
         L"/trip/readings/@hex", L"Invalid Value for hex [0102030405]."},
        {"BinaryMinLength", WithReadings(L" b64=\"\""), AttributeWrapper(L"b64"), L"/trip/readings/@b64",
         L"Invalid Value for b64 []."},
        {"AttributeStringPattern", WithReadings(L" str=\"abc\""), AttributeWrapper(L"str"),
         L"/trip/readings/@str", L"Invalid Value for str [abc]."},
        {"BigIntegerMinInclusive", WithReadings(L" int=\"-1\""), AttributeWrapper(L"int"),
         L"/trip/readings/@int", L"Invalid Value for int [-1]."},
    };
}

class FacetOnLoad : public testing::TestWithParam<FacetCase> {};

TEST_P(FacetOnLoad, RejectedByXmllintAndBySetterWithItsXPath) {
    const FacetCase& c = GetParam();
    EXPECT_FALSE(ValidateWithXmllint(c.document).valid) << "xmllint accepted it";

    CSmartPtr<CTrip> trip(new CTrip());
    try {
        trip->FromXml(c.document.c_str());
        ADD_FAILURE() << "loaded";
    } catch (const CQxException& e) {
        EXPECT_EQ(0u, e.GetFullMessage().find(L"Failed to process the element.")) << e.GetFullMessage();
        const std::vector<Link> chain = ChainOf(e);
        ASSERT_GE(chain.size(), 2u);
        const Link& wrapper = chain[chain.size() - 2];
        EXPECT_EQ(c.wrapper, wrapper.message);
        EXPECT_EQ(c.path, wrapper.path);
        EXPECT_EQ(c.violation, chain.back().message);
        EXPECT_EQ(L"", chain.back().path);
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, FacetOnLoad, testing::ValuesIn(FacetCases()),
                         [](const testing::TestParamInfo<FacetCase>& info) { return info.param.name; });

TEST(FacetOnLoad, ValuesOnTheBoundsLoad) {
    const std::wstring document = Documents::Trip(
        L" id=\"T1\"",
        Replace(Documents::MinimalBody(), L"lat=\"50.1\"", L"lat=\"90\"") +
            L"<readings i4=\"999\" yr=\"1900\" u1=\"99\" dec=\"123.45\" hex=\"01020304\" b64=\"AQ==\"/>");
    EXPECT_TRUE(ValidateWithXmllint(document).valid);
    CSmartPtr<CTrip> trip(new CTrip());
    EXPECT_NO_THROW(trip->FromXml(document.c_str()));
    EXPECT_EQ(CDecimal(L"90"), trip->GetStart()->GetLat());
}

} // namespace
