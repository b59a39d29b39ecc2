#include <QxXmlLib16/foundation/QXCriticalSection.h>

CQXCriticalSection::CQXCriticalSection() {
    pthread_mutex_init(&m_mutex, nullptr);
}

CQXCriticalSection::~CQXCriticalSection() {
    pthread_mutex_destroy(&m_mutex);
}

void CQXCriticalSection::Enter() {
    pthread_mutex_lock(&m_mutex);
}

void CQXCriticalSection::Leave() {
    pthread_mutex_unlock(&m_mutex);
}
