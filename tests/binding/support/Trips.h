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

} // namespace Trips
