#pragma once

#include <QxXmlLib16/foundation/Export.h>

// Base of the library's objects, given the class name at construction. It keeps no state: it is
// the one place where leak diagnostics can be hooked in without touching every class.
class QX_API CInstanceMonitor {
public:
    explicit CInstanceMonitor(const wchar_t* className) { (void)className; }
    virtual ~CInstanceMonitor() = default;
};
