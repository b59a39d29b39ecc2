#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/SmartPtr.h>

#include "collections/support/Recorders.h"
#include "foundation/support/MessageOf.h"

#include <gtest/gtest.h>

using namespace QxXmlLib16;

namespace {

CSmartPtr<Ci4Col> MakeCol(int count, int minOccurs, int maxOccurs) {
    CSmartPtr<Ci4Col> col(new Ci4Col(L"n", L"", minOccurs, maxOccurs, nullptr, -1, -1, nullptr, nullptr,
                                     nullptr, nullptr, -1, -1, -1, CWhitespaceUtils::wsCollapse, nullptr));
    for (int i = 0; i < count; ++i)
        col->Add(i);
    return col;
}

} // namespace

TEST(CollectionCount, MaximumIsReportedBeforeMinimum) {
    const struct {
        int count, minOccurs, maxOccurs;
        const wchar_t* message;
    } cases[] = {
        {3, 1, 2, L"The Maximum number of [n] elements allowed in this collection is 2"},
        {3, 5, 2, L"The Maximum number of [n] elements allowed in this collection is 2"},
        {1, 2, 4, L"The Minimum number of [n] elements allowed in this collection is 2"},
        {0, 1, -1, L"The Minimum number of [n] elements allowed in this collection is 1"},
        {1000, 0, -1, L"(no exception)"},
        {0, 0, 0, L"(no exception)"},
        {2, 2, 2, L"(no exception)"},
    };
    CSerializationContext ignoring;
    ignoring.SetIgnoreInvalidCollectionCounts(true);
    for (const auto& c : cases) {
        CSmartPtr<Ci4Col> col = MakeCol(c.count, c.minOccurs, c.maxOccurs);
        const CSerializationContext& context = CSerializationContext::m_defaultContext;
        EXPECT_EQ(c.message, MessageOf<CQxValidationException>([&] { col->ValidateCount(context); }))
            << c.count << " in " << c.minOccurs << ".." << c.maxOccurs;
        EXPECT_EQ(std::wstring(c.message) == L"(no exception)", col->IsValidCount(context));
        EXPECT_EQ(L"(no exception)", MessageOf<CQxException>([&] { col->ValidateCount(ignoring); }));
        EXPECT_TRUE(col->IsValidCount(ignoring));
    }
    // The collection knows no element: the reader adds the path.
    try {
        MakeCol(0, 1, 1)->ValidateCount(CSerializationContext::m_defaultContext);
        ADD_FAILURE();
    } catch (const CQxValidationException& e) {
        EXPECT_EQ(L"", e.GetPath());
    }
}

TEST(CollectionBase, HasNoTargetNamespaceOfItsOwn) {
    CSmartPtr<Ci4Col> col = MakeCol(0, 0, -1);
    EXPECT_EQ(
        L"CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection (program logic "
        L"error)",
        MessageOf<CQxException>([&] { col->GetTargetNamespace(); }));
    EXPECT_EQ(col.Get(), col->GetBase());
}

TEST(CollectionListeners, AddedTwiceHearTwiceAndAreRemovedWhole) {
    CSmartPtr<Ci4Col> col = MakeCol(0, 0, -1);
    CRecordingSink twice, once;
    col->RemoveEventListener(&once); // before any listener: nothing to remove
    col->Add(0);
    col->AddEventListener(&twice);
    col->AddEventListener(&once);
    col->AddEventListener(&twice);
    col->Add(1);
    EXPECT_EQ(L"+ + +! +! ~ ~", twice.log);
    EXPECT_EQ(L"+ +! ~", once.log);
    col->RemoveEventListener(&twice);
    twice.log.clear();
    col->Add(2);
    EXPECT_EQ(L"", twice.log);
    EXPECT_EQ(L"+ +! ~ + +! ~", once.log);
}

namespace {

// Takes itself off the collection when first told of something.
class CLeavingSink : public IEventSink {
public:
    void OnEvent(CXmlObjectBase* source, MsgType, void*) override {
        ++heard;
        static_cast<CXmlCollectionBase*>(source)->RemoveEventListener(this);
    }
    int heard = 0;
};

} // namespace

TEST(CollectionListeners, MayLeaveWhileBeingTold) {
    CSmartPtr<Ci4Col> col = MakeCol(0, 0, -1);
    CLeavingSink leaving;
    CRecordingSink staying;
    col->AddEventListener(&leaving);
    col->AddEventListener(&staying);
    col->Add(1);
    EXPECT_EQ(1, leaving.heard);
    EXPECT_EQ(L"+ +! ~", staying.log);
}

TEST(CollectionListeners, ReleasingWithListenersAttachedLeavesNothingBehind) {
    CRecordingSink sink;
    {
        CSmartPtr<Ci4Col> col = MakeCol(3, 0, -1);
        col->AddEventListener(&sink);
        col->AddEventListener(&sink);
    }
    EXPECT_EQ(L"", sink.log); // a dying collection tells nobody; the leak checker sees the rest
}
