#include <QxXmlLib16/json/JsonReaderHandler.h>

namespace QxXmlLib16 {

CJsonReaderDefaultHandler::CJsonReaderDefaultHandler()
    : m_depth(0)
    , m_inner(nullptr) {}

CJsonReaderDefaultHandler::~CJsonReaderDefaultHandler() = default;

CJsonReaderDefaultHandler::StackItem& CJsonReaderDefaultHandler::Push(Kind kind, bool isItem) {
    if (m_depth == m_stack.size()) m_stack.emplace_back();
    StackItem& item = m_stack[m_depth++];
    item.name.clear();
    item.index = -1;
    item.kind = kind;
    item.isItem = isItem;
    return item;
}

void CJsonReaderDefaultHandler::BeginContainer(Kind kind) {
    StackItem* top = Top();
    if (top && top->kind == kMember) {
        top->kind = kind;
    } else if (top && top->kind == kArray) {
        ++top->index;
        Push(kind, true);
    } else {
        Push(kind, false);
    }
}

template <class Forward>
void CJsonReaderDefaultHandler::SimpleValue(Forward forward) {
    StackItem* top = Top();
    if (top && top->kind == kArray) {
        ++top->index;
        Push(kMember, true);
    }
    if (m_inner) forward(*m_inner);
    if (Top() && Top()->kind == kMember) Pop();
}

void CJsonReaderDefaultHandler::ReadStartDocument() {
    m_depth = 0;
    if (m_inner) m_inner->ReadStartDocument();
}

void CJsonReaderDefaultHandler::ReadEndDocument() {
    if (m_inner) m_inner->ReadEndDocument();
}

void CJsonReaderDefaultHandler::ReadName(const std::wstring& name) {
    Push(kMember, false).name = name;
    if (m_inner) m_inner->ReadName(name);
}

void CJsonReaderDefaultHandler::ReadString(const std::wstring& value) {
    SimpleValue([&](IJsonReaderHandler& inner) { inner.ReadString(value); });
}

void CJsonReaderDefaultHandler::ReadNumber(const std::wstring& value) {
    SimpleValue([&](IJsonReaderHandler& inner) { inner.ReadNumber(value); });
}

void CJsonReaderDefaultHandler::ReadBool(bool value) {
    SimpleValue([&](IJsonReaderHandler& inner) { inner.ReadBool(value); });
}

void CJsonReaderDefaultHandler::ReadNull() {
    SimpleValue([&](IJsonReaderHandler& inner) { inner.ReadNull(); });
}

void CJsonReaderDefaultHandler::ReadStartObject() {
    BeginContainer(kObject);
    if (m_inner) m_inner->ReadStartObject();
}

void CJsonReaderDefaultHandler::ReadEndObject() {
    if (m_depth) Pop();
    if (m_inner) m_inner->ReadEndObject();
}

void CJsonReaderDefaultHandler::ReadStartArray() {
    BeginContainer(kArray);
    if (m_inner) m_inner->ReadStartArray();
}

void CJsonReaderDefaultHandler::ReadEndArray() {
    if (m_depth) Pop();
    if (m_inner) m_inner->ReadEndArray();
}

std::wstring CJsonReaderDefaultHandler::GetPath() const {
    std::wstring path;
    for (size_t i = 0; i < m_depth; ++i) {
        const StackItem& item = m_stack[i];
        if (item.isItem) {
            const StackItem& array = m_stack[i - 1];
            path += L'.';
            path += array.name;
            path += L'[';
            path += std::to_wstring(array.index);
            path += L']';
        } else if (!item.name.empty()) {
            path += L'.';
            path += item.name;
        }
    }
    return path;
}

} // namespace QxXmlLib16
