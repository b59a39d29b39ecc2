#pragma once

#include <QxXmlLib16/json/JsonReaderHandler.h>

#include <string>

// A handler that takes every event and does nothing with it: tests override the events they watch.
struct CIgnoringHandler : QxXmlLib16::IJsonReaderHandler {
    void ReadStartDocument() override {}
    void ReadEndDocument() override {}
    void ReadName(const std::wstring&) override {}
    void ReadString(const std::wstring&) override {}
    void ReadNumber(const std::wstring&) override {}
    void ReadStartObject() override {}
    void ReadEndObject() override {}
    void ReadStartArray() override {}
    void ReadEndArray() override {}
    void ReadBool(bool) override {}
    void ReadNull() override {}
};
