// What the generated classes give their users beyond a verdict: the class that xsi:type or a
// substitution group chooses, defaults and fixed values, setters that check (patterns with XML
// Schema's meaning), choices that hold one member, simple-typed roots and nil members.

#include "qxxsd/support/Cases.h"

#include "choice.h"
#include "defaults.h"
#include "extension.h"
#include "facets.h"
#include "groups.h"
#include "nillable.h"
#include "patterns.h"
#include "simpleroot.h"
#include "substitution.h"

#include <gtest/gtest.h>

#include <functional>

using namespace QxXmlLib16;

namespace {

template <class Roots>
CSmartPtr<CXmlObjectBase> Load(Roots roots, const std::string& file) {
    return roots().Load(Cases::Wide(Cases::Folder() + "/" + file).c_str(),
                        CSerializationContext::m_defaultContext);
}

template <class T>
T* As(const CSmartPtr<CXmlObjectBase>& object) {
    T* typed = dynamic_cast<T*>(object.Get());
    EXPECT_TRUE(typed);
    return typed;
}

TEST(GeneratedApi, XsiTypeChoosesTheDerivedClass) {
    const auto loaded = Load(&Extension::DocumentRoots, "extension/shapes.xml");
    const auto* drawing = As<Extension::CDrawing>(loaded);
    const auto* main = dynamic_cast<const Extension::CSquare*>(drawing->GetMain());
    ASSERT_TRUE(main);
    EXPECT_EQ(CDecimal(L"2"), main->GetSide());
    EXPECT_EQ(L"red", *main->GetColour());
    ASSERT_EQ(2, drawing->GetShape()->GetCount());
    const auto* ring = dynamic_cast<const Extension::CRing*>(drawing->GetShape()->Item(0));
    ASSERT_TRUE(ring);
    EXPECT_EQ(CDecimal(L"0.5"), ring->GetInner());
    EXPECT_FALSE(dynamic_cast<const Extension::CRing*>(drawing->GetShape()->Item(1)));
    EXPECT_NE(std::wstring::npos, loaded->ToXml().find(L"AB:type=\"AA:Ring\" inner=\"0.5\">"))
        << Cases::Utf8(loaded->ToXml());
}

TEST(GeneratedApi, SubstitutesAreChosenByElementName) {
    const auto fleet = Load(&Substitution::DocumentRoots, "substitution/mixed-fleet.xml");
    std::vector<std::wstring> order;
    for (const Substitution::CVehicleSubstitutes* vehicle : *As<Substitution::CFleet>(fleet)->GetVehicle()) {
        if (vehicle->GetCar()) order.push_back(L"car " + std::to_wstring(vehicle->GetCar()->GetWheels()));
        if (vehicle->GetTruck()) order.push_back(L"truck " + vehicle->GetTruck()->GetLoad().ToString());
        if (vehicle->GetRacer()) order.push_back(L"racer");
    }
    EXPECT_EQ((std::vector<std::wstring>{L"car 4", L"truck 2.5", L"racer", L"car 3"}), order);
}

TEST(GeneratedApi, DefaultsFillWhatTheDocumentLeavesOut) {
    const auto loaded = Load(&Defaults::DocumentRoots, "defaults/empty-elements.xml");
    const auto* config = As<Defaults::CConfig>(loaded);
    EXPECT_EQ(3, config->GetRetries());
    EXPECT_EQ(Defaults::Mode_safe, config->GetMode());
    EXPECT_EQ(5, config->GetLevel());
    EXPECT_EQ(L"none", config->GetName());
    EXPECT_EQ(Defaults::Mode_fast, config->GetKind());
    EXPECT_EQ(CDecimal(L"1.0"), config->GetVersion());
    EXPECT_FALSE(config->GetOwner());
}

TEST(GeneratedApi, FixedValuesRefuseOthers) {
    Defaults::CConfig config;
    config.SetVersion(CDecimal(L"1.00"));
    EXPECT_THROW(config.SetVersion(CDecimal(L"1.1")), CQxException);
    config.SetProtocol(std::wstring(L"tcp"));
    EXPECT_THROW(config.SetProtocol(std::wstring(L"udp")), CQxException);
    EXPECT_EQ(L"tcp", *config.GetProtocol());
}

TEST(GeneratedApi, SettersCheckTheFacetsOfTheirType) {
    Facets::CRecord record;
    const std::vector<std::pair<const char*, std::function<void()>>> refused = {
        {"pattern", [&] { record.SetCode(L"ab12"); }},
        {"maxLength of a token", [&] { record.SetCode(L"AB1234"); }},
        {"inherited pattern", [&] { record.SetShort(std::wstring(L"CD12")); }},
        {"maxInclusive", [&] { record.SetPercent(CDecimal(L"100.01")); }},
        {"fractionDigits", [&] { record.SetPercent(CDecimal(L"1.001")); }},
        {"maxExclusive of a restriction of a restriction", [&] { record.SetSmall(CDecimal(L"10")); }},
        {"enumeration of an int", [&] { record.SetOdd(std::wstring(L"2")); }},
        {"maxLength of hexBinary", [&] { record.SetHex(CBinaryData(L"\x1\x2\x3")); }},
    };
    for (const auto& setter : refused)
        EXPECT_THROW(setter.second(), CQxException) << setter.first;
    record.SetCode(L"AB12");
    record.SetOdd(std::wstring(L"05"));
    record.SetPercent(CDecimal(L"99.99"));
    EXPECT_EQ(L"AB12", record.GetCode());
    EXPECT_THROW(Facets::LevelFromText(L"high"), CQxInvalidValueException);
    EXPECT_EQ(Facets::Level_mid_high, Facets::LevelFromText(L"mid-high"));
}

// Generated code asks for XML Schema's reading of patterns; other dialects read each of these
// otherwise.
TEST(GeneratedApi, PatternsHaveTheirXmlSchemaMeaning) {
    Patterns::CRecord record;
    const std::vector<std::pair<const char*, std::function<void()>>> accepted = {
        {"^ and $ are characters", [&] { record.SetMarked(std::wstring(L"^42$")); }},
        {"\\d takes every decimal digit", [&] { record.SetDigits(std::wstring(L"\u0663\u0664")); }},
        {"\\w takes letters beyond ASCII", [&] { record.SetWord(std::wstring(L"h\u00E9llo")); }},
        {"a block name", [&] { record.GetGreek()->Add(L"\u03B1\u03B2"); }},
        {"both steps of a chain", [&] { record.SetUpper(std::wstring(L"xbc")); }},
    };
    for (const auto& setter : accepted)
        EXPECT_NO_THROW(setter.second()) << setter.first;
    const std::vector<std::pair<const char*, std::function<void()>>> refused = {
        {"subtraction", [&] { record.SetConsonants(std::wstring(L"bad")); }},
        {"^ is no anchor", [&] { record.SetMarked(std::wstring(L"42")); }},
        {"\\w leaves out punctuation", [&] { record.SetWord(std::wstring(L"a-b")); }},
        {"\\c minus a class", [&] { record.SetLabel(std::wstring(L"a.b")); }},
        {"the dot stops at a line feed", [&] { record.SetLine(std::wstring(L"a\nb")); }},
        {"a block name, in a collection", [&] { record.GetGreek()->Add(L"alpha"); }},
        {"\\S minus \\d, on a list", [&] { record.SetCodes(std::wstring(L"ab c1")); }},
        {"the base's step of a chain", [&] { record.SetUpper(std::wstring(L"xa")); }},
        {"the derived step of a chain", [&] { record.SetUpper(std::wstring(L"fg")); }},
    };
    for (const auto& setter : refused)
        EXPECT_THROW(setter.second(), CQxException) << setter.first;
    EXPECT_EQ(L"xbc", *record.GetUpper());
}

TEST(GeneratedApi, AChoiceHoldsOneMember) {
    Choice::CPayment payment;
    payment.SetCash(CDecimal(L"5"));
    payment.SetCard(std::wstring(L"visa"));
    EXPECT_FALSE(payment.GetCash());
    payment.SetSequence(new Choice::CPaymentSequence());
    EXPECT_FALSE(payment.GetCard());
    EXPECT_TRUE(payment.GetSequence());
}

TEST(GeneratedApi, RepeatedGroupsKeepEachOccurrence) {
    const auto loaded = Load(&Groups::DocumentRoots, "groups/lines.xml");
    const auto* invoice = As<Groups::CInvoice>(loaded);
    ASSERT_EQ(2, invoice->GetLine()->GetCount());
    const Groups::CLine* first = invoice->GetLine()->Item(0);
    const Groups::CLine* second = invoice->GetLine()->Item(1);
    EXPECT_EQ(L"a", first->GetProduct());
    EXPECT_EQ(L"fragile", *first->GetNote()->GetRemark());
    EXPECT_EQ(7, *second->GetNote()->GetCode());
    EXPECT_EQ(L"me", *invoice->GetAudit()->GetAuthor());
    EXPECT_TRUE(*invoice->GetUrgent());
}

TEST(GeneratedApi, SimpleTypedRootsHoldOneValue) {
    EXPECT_EQ(CDecimal(L"21.5"),
              As<Simpleroot::CTemperature>(Load(&Simpleroot::DocumentRoots, "simpleroot/temperature.xml"))
                  ->GetValue());
    EXPECT_EQ(
        Simpleroot::Weekday_Tue,
        As<Simpleroot::CWeekday>(Load(&Simpleroot::DocumentRoots, "simpleroot/weekday.xml"))->GetValue());
    Simpleroot::CTemperature cold;
    EXPECT_THROW(cold.SetValue(CDecimal(L"-274")), CQxException);
}

TEST(GeneratedApi, ARootOfNoGlobalElementIsNamed) {
    try {
        Load(&Simpleroot::DocumentRoots, "simpleroot/unknown-root.xml");
        FAIL() << "loaded";
    } catch (const CQxValidationException& e) {
        EXPECT_EQ(
            L"The document element [weather] of namespace [urn:case:simpleroot] is not a global element of "
            L"this schema\nPath: /weather",
            e.GetMessage());
    }
}

TEST(GeneratedApi, NilElementsReadBackAsNil) {
    const auto loaded = Load(&Nillable::DocumentRoots, "nillable/nils.xml");
    const auto* entry = As<Nillable::CEntry>(loaded);
    EXPECT_TRUE(entry->IsCountNil());
    EXPECT_TRUE(entry->IsNoteNil());
    EXPECT_TRUE(entry->GetOwner()->IsNil());
    const std::wstring text = loaded->ToXml();
    EXPECT_EQ(std::wstring::npos, text.find(L"<AA:count>")) << Cases::Utf8(text);
    const auto values = Load(&Nillable::DocumentRoots, "nillable/not-nil.xml");
    EXPECT_FALSE(As<Nillable::CEntry>(values)->IsCountNil());
}

TEST(GeneratedApi, NilMembersAreWrittenAsNil) {
    Nillable::CEntry entry;
    entry.SetCountNil();
    entry.SetNote(std::wstring(L"n"));
    entry.SetNoteNil();
    entry.GetOwner()->SetNil(true);
    const std::wstring text = entry.ToXml();
    for (const wchar_t* element : {L"count", L"note", L"owner"})
        EXPECT_NE(std::wstring::npos,
                  text.find(std::wstring(L"<AA:") + element +
                            L" xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" AB:nil=\"true\"/>"))
            << Cases::Utf8(text);
    entry.SetCount(4);
    EXPECT_FALSE(entry.IsCountNil());
}

} // namespace
