#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/collections/XmlCollection.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/SmartPtr.h>

#include "collections/support/Recorders.h"
#include "foundation/support/MessageOf.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

using namespace QxXmlLib16;

namespace {

// An item that counts its destructions and writes one attribute naming itself.
class CItem : public CXmlObjectBase {
public:
    CItem(const wchar_t* name, int* destroyed)
        : m_destroyed(destroyed) {
        SetElementName(name);
    }
    ~CItem() override { ++*m_destroyed; }
    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return L""; }
    std::wstring GetNamespace() const override { return L""; }

protected:
    void AttributesToXml_Int(CXmlWriter* writer, const CSerializationContext&) const override {
        writer->WriteAttributeString(L"id", L"", GetElementName(), itString);
    }
    void ToXml_Int(CXmlWriter*, bool, const wchar_t*, const CSerializationContext&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* first, const CSerializationContext&, bool) override {
        return first;
    }

private:
    int* m_destroyed;
};

// The list alone: writing and reading belong to the generated collections.
class CList : public CXmlCollection {
public:
    CList(int minOccurs = 0, int maxOccurs = -1)
        : CXmlCollection(L"item", L"urn:list", minOccurs, maxOccurs) {}
    void WriteAttributes(CXmlWriter* writer) const {
        CXmlObjectBase::AttributesToXml_Int(this, writer, CSerializationContext::m_defaultContext);
    }

protected:
    void ToXml_Int(CXmlWriter*, bool, const wchar_t*, const CSerializationContext&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* first, const CSerializationContext&, bool) override {
        return first;
    }
};

class XmlCollection : public ::testing::Test {
protected:
    XmlCollection()
        : list(new CList) {
        for (const wchar_t* name : {L"a", L"b", L"c", L"x"})
            items.emplace_back(new CItem(name, &destroyed));
        list->AddEventListener(&sink);
    }

    // The element names of the items, in list order.
    std::wstring Names() const {
        std::wstring names;
        for (CXmlObjectBase* item : *list)
            names += item ? item->GetElementName() : L"0";
        return names;
    }

    int destroyed = 0;
    CRecordingSink sink;
    CSmartPtr<CList> list;
    std::vector<CSmartPtr<CItem>> items;
};

} // namespace

TEST_F(XmlCollection, EveryInsertionFormPlacesItsItem) {
    list->AppendItem(items[1].Get());
    list->PrependItem(items[0].Get());
    list->AddItemAt(2, items[2].Get()); // index == count appends
    list->AddAfterItem(items[0].Get(), items[3].Get());
    EXPECT_EQ(L"axbc", Names());
    list->AddBeforeItem(items[0].Get(), nullptr);
    list->AddAfterItem(nullptr, items[2].Get());  // null prepends
    list->AddBeforeItem(nullptr, items[3].Get()); // null appends
    list->AddItemAt(1, items[1].Get());
    EXPECT_EQ(L"cb0axbcx", Names());
    EXPECT_EQ(8, list->GetCount());
    EXPECT_EQ(items[1].Get(), list->Item(1));
    EXPECT_EQ(items[3].Get(), list->GetNodeAtIndex(7)->GetItem());
    EXPECT_EQ(list->GetNodeAtIndex(6), list->GetNodeAtIndex(7)->GetPrevious());
}

TEST_F(XmlCollection, AddsAndRemovesTellListenersWithIndexMinusOne) {
    list->AppendItem(items[0].Get());
    list->AppendItem(items[1].Get());
    EXPECT_EQ(L"+ +! ~ + +! ~", sink.log);
    EXPECT_EQ(list.Get(), sink.lastSource);
    sink.log.clear();
    list->Remove(1);
    list->RemoveNode(list->GetNodeAtIndex(0));
    EXPECT_EQ(L"-(-1) -!(-1) ~ -(-1) -!(-1) ~", sink.log);
    EXPECT_EQ(0, list->GetCount());
}

TEST_F(XmlCollection, RemovingRelinksBothEnds) {
    for (int i = 0; i < 4; ++i)
        list->AppendItem(items[i].Get());
    list->Remove(1);
    EXPECT_EQ(L"acx", Names());
    list->Remove(2);
    list->AppendItem(items[1].Get()); // the tail must be c now
    list->Remove(0);
    list->PrependItem(items[3].Get()); // the head must be c now
    EXPECT_EQ(L"xcb", Names());
    EXPECT_EQ(nullptr, list->GetNodeAtIndex(0)->GetPrevious());
    EXPECT_EQ(nullptr, list->GetNodeAtIndex(2)->GetNext());
}

TEST_F(XmlCollection, IndexAndLookupErrors) {
    for (int i = 0; i < 3; ++i)
        list->AppendItem(items[i].Get());
    const struct {
        std::function<void()> action;
        const wchar_t* message;
    } cases[] = {
        {[&] { list->GetNodeAtIndex(3); }, L"Index 3 is out of range, use 0 - 3"},
        {[&] { list->Item(-1); }, L"Index -1 is out of range, use 0 - 3"},
        {[&] { list->Remove(5); }, L"Index 5 is out of range, use 0 - 3"},
        {[&] { list->AddItemAt(4, items[3].Get()); }, L"Index out of range"},
        {[&] { list->AddItemAt(-1, items[3].Get()); }, L"Index out of range"},
        {[&] { list->AddAfterItem(items[3].Get(), items[0].Get()); },
         L"The object was not found in the collection"},
        {[&] { list->AddBeforeItem(items[3].Get(), items[0].Get()); },
         L"The object was not found in the collection"},
    };
    sink.log.clear();
    for (const auto& c : cases)
        EXPECT_EQ(c.message, MessageOf<CQxInvalidParamException>(c.action));
    EXPECT_EQ(L"abc", Names());
    EXPECT_EQ(L"", sink.log) << "a refused insertion or removal announces nothing";
}

// A node holds one reference, released by its removal; releasing the collection releases the rest
// without telling anyone.
TEST_F(XmlCollection, HoldsOneReferencePerNodeAndReleasesItsItems) {
    CItem* a = items[0].Get();
    list->AppendItem(a);
    list->AppendItem(a);
    list->AppendItem(nullptr);
    list->AppendItem(items[1].Get());
    items.clear();
    const int unused = destroyed;
    list->Remove(0);
    EXPECT_EQ(unused, destroyed);
    sink.log.clear();
    list.Reset();
    EXPECT_EQ(unused + 2, destroyed);
    EXPECT_EQ(L"", sink.log);
}

TEST_F(XmlCollection, WritesTheAttributesOfEveryItemInOrder) {
    list->AppendItem(items[1].Get());
    list->AppendItem(nullptr);
    list->AppendItem(items[0].Get());
    CRecordingWriter writer;
    list->WriteAttributes(&writer);
    EXPECT_EQ(L"@id=b@id=a", writer.log);
}
