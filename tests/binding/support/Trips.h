#pragma once

#include "binding/support/TestSchema.h"

// Object trees of the test schema shared by the proof tests.
namespace Trips {

// Only the mandatory members.
QxXmlLib16::CSmartPtr<TestSchema::CTrip> Minimal();
// Every member set; the stop is a campsite, so it is written with xsi:type.
QxXmlLib16::CSmartPtr<TestSchema::CTrip> Full();
// Mandatory members plus a nil contact and a plain place as stop.
QxXmlLib16::CSmartPtr<TestSchema::CTrip> NilContact();

// The text of every attribute of Readings in Full(), by ItemType.
const wchar_t* ReadingText(QxXmlLib16::ItemType type);
// The attribute of Readings that holds a value of that kind: the schema declares them in ItemType
// order, one per kind, so a kind is its property number (the one-character ch is a string).
QxXmlLib16::QxVariant Reading(TestSchema::CReadings& readings, QxXmlLib16::ItemType type);
void SetReading(TestSchema::CReadings& readings, QxXmlLib16::ItemType type, const std::wstring& text);

} // namespace Trips
