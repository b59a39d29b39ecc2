#include "Trips.h"

using namespace QxXmlLib16;
using namespace TestSchema;

namespace Trips {

CSmartPtr<CTrip> Minimal() {
    CSmartPtr<CTrip> trip(new CTrip());
    trip->SetId(L"T1");
    trip->SetTitle(L"Coast path");
    trip->SetMode(TravelMode_cycle);
    trip->GetDistance()->SetValue(CDecimal(L"12.5"));
    trip->GetAudit()->SetCreated(CDateTime::ParseXSDDateTime(L"2024-05-01T10:00:00Z"));
    trip->GetStart()->SetLat(CDecimal(L"50.1"));
    trip->GetStart()->SetLon(CDecimal(L"-4.25"));
    trip->GetStart()->SetLabel(L"Bay & harbour <east>");
    trip->GetContact()->SetEmail(L"ann@example.org");
    return trip;
}

const wchar_t* ReadingText(ItemType type) {
    // In ItemType order, from itHexBinary to itInteger.
    static const wchar_t* const kTexts[] = {L"0A0BFF",     L"aGVsbG8=",
                                            L"-3",         L"300",
                                            L"42",         L"-9000000000",
                                            L"99",         L"60000",
                                            L"100000",     L"18000000000000000000",
                                            L"1.5",        L"0.25",
                                            L"P1DT2H",     L"2020-02",
                                            L"--05-07",    L"2001",
                                            L"--05",       L"---07",
                                            L"2024-02-29", L"2024-05-01T10:00:00Z",
                                            L"10:30:00",   L"x",
                                            L"Abc",        L"true",
                                            L"123.45",     L"12345678901234567890"};
    return type >= itHexBinary && type <= itInteger ? kTexts[type - itHexBinary] : L"";
}

QxVariant Reading(CReadings& readings, ItemType type) {
    QxVariant value;
    readings.AccessProperty(type, true, value);
    return value;
}

void SetReading(CReadings& readings, ItemType type, const std::wstring& text) {
    QxVariant value;
    value.FromString(text, type == itChar ? itString : type, CWhitespaceUtils::wsCollapse);
    readings.AccessProperty(type, false, value);
}

CSmartPtr<CTrip> Full() {
    CSmartPtr<CTrip> trip = Minimal();
    trip->SetPaceAttribute(Pace_fast);
    trip->SetVersion(CDecimal(L"2.5"));
    trip->SetNote(std::wstring(L"Windy\non the cliffs"));
    trip->SetDays(3);
    trip->SetPace(Pace_slow);
    trip->GetDistance()->SetUnit(Unit_mi);
    trip->GetDistance()->SetApprox(true);
    trip->GetAudit()->SetAuthor(std::wstring(L"Ann"));
    CSmartPtr<CCampsite> stop(new CCampsite());
    stop->SetLat(CDecimal(L"50.2"));
    stop->SetLon(CDecimal(L"-4.1"));
    stop->SetLabel(L"Camp");
    stop->SetPitches(12);
    stop->SetOpen(false);
    trip->SetStop(stop.Get());
    trip->GetContact()->SetPhone(std::wstring(L"+44 1234"));
    CSmartPtr<CReadings> readings(new CReadings());
    for (int type = itHexBinary; type <= itInteger; ++type)
        SetReading(*readings, ItemType(type), ReadingText(ItemType(type)));
    trip->SetReadings(readings.Get());
    return trip;
}

CSmartPtr<CTrip> NilContact() {
    CSmartPtr<CTrip> trip = Minimal();
    trip->GetContact()->SetNil(true);
    CSmartPtr<CPlace> stop(new CPlace());
    stop->SetLat(CDecimal(L"0"));
    stop->SetLon(CDecimal(L"0"));
    stop->SetLabel(L"Null island");
    trip->SetStop(stop.Get());
    return trip;
}

} // namespace Trips
