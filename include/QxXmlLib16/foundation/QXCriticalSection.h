#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <pthread.h>

// A plain (non-recursive) mutex. Enter locks, Leave unlocks.
class QX_API CQXCriticalSection {
public:
    CQXCriticalSection();
    virtual ~CQXCriticalSection();
    CQXCriticalSection(const CQXCriticalSection&) = delete;
    CQXCriticalSection& operator=(const CQXCriticalSection&) = delete;

    void Enter();
    void Leave();

private:
    pthread_mutex_t m_mutex;
};

// Holds a critical section for the length of a scope.
class CQXLock {
public:
    explicit CQXLock(CQXCriticalSection& section)
        : m_section(section) {
        m_section.Enter();
    }
    ~CQXLock() { m_section.Leave(); }
    CQXLock(const CQXLock&) = delete;
    CQXLock& operator=(const CQXLock&) = delete;

private:
    CQXCriticalSection& m_section;
};
