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
    switch (type) {
    case itHexBinary:
        return L"0A0BFF";
    case itBase64Binary:
        return L"aGVsbG8=";
    case itI1:
        return L"-3";
    case itI2:
        return L"300";
    case itI4:
        return L"42";
    case itI8:
        return L"-9000000000";
    case itUi1:
        return L"99";
    case itUi2:
        return L"60000";
    case itUi4:
        return L"100000";
    case itUi8:
        return L"18000000000000000000";
    case itR4:
        return L"1.5";
    case itR8:
        return L"0.25";
    case itDuration:
        return L"P1DT2H";
    case itYearMonth:
        return L"2020-02";
    case itMonthDay:
        return L"--05-07";
    case itYear:
        return L"2001";
    case itMonth:
        return L"--05";
    case itDay:
        return L"---07";
    case itDate:
        return L"2024-02-29";
    case itDateTime:
        return L"2024-05-01T10:00:00Z";
    case itTime:
        return L"10:30:00";
    case itChar:
        return L"x";
    case itString:
        return L"Abc";
    case itBoolean:
        return L"true";
    case itDecimal:
        return L"123.45";
    case itInteger:
        return L"12345678901234567890";
    default:
        return L"";
    }
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
