#include <QxXmlLib16/foundation/Exceptions.h>

#include <gtest/gtest.h>

#include <memory>
#include <typeinfo>

using namespace QxXmlLib16;

TEST(Exceptions, FullMessageJoinsTheChainOutermostFirst) {
    CQxException innermost(L"c");
    CQxValidationException middle(L"b", L"/r", innermost);
    CQxException outer(L"a", middle);
    EXPECT_EQ(outer.GetFullMessage(), L"a\nb\nPath: /r\nc");
    ASSERT_NE(outer.GetInnerException(), nullptr);
    ASSERT_NE(outer.GetInnerException()->GetInnerException(), nullptr);
    EXPECT_EQ(outer.GetInnerException()->GetInnerException()->GetInnerException(), nullptr);
}

TEST(Exceptions, CloneKeepsTheDynamicClassAndDeepCopiesTheChain) {
    CQxInvalidNamespaceException original(L"ns", L"/x", CQxOverFlowException(L"inner"));
    original.SetDetail(L"detail");
    const CQxException& asBase = original;
    std::unique_ptr<CQxException> copy(asBase.Clone());

    auto* typed = dynamic_cast<CQxInvalidNamespaceException*>(copy.get());
    ASSERT_NE(typed, nullptr);
    EXPECT_EQ(typed->GetDetail(), L"detail");
    EXPECT_EQ(copy->GetMessage(), original.GetMessage());
    EXPECT_EQ(copy->GetPath(), L"/x");
    ASSERT_NE(copy->GetInnerException(), nullptr);
    EXPECT_NE(copy->GetInnerException(), original.GetInnerException());
    EXPECT_NE(dynamic_cast<const CQxOverFlowException*>(copy->GetInnerException()), nullptr);

    // Every class clones as itself, so that a cloned chain can still be told apart by type.
    const CQxInvalidParamException param(L"p");
    const CQxInvalidStateException state(L"s");
    const CQxInvalidValueException value(L"v");
    for (const CQxException* e :
         {static_cast<const CQxException*>(&param), static_cast<const CQxException*>(&state),
          static_cast<const CQxException*>(&value)}) {
        const std::unique_ptr<CQxException> clone(e->Clone());
        EXPECT_EQ(typeid(*clone), typeid(*e));
    }

    // Copy construction leaves the detail empty; only Clone carries it.
    CQxValidationException copied(original);
    EXPECT_EQ(copied.GetDetail(), L"");
}

// The position goes wherever the message goes: a copy of any class, a clone and an assignment; it
// never changes the message.
TEST(Exceptions, PositionTravelsWithTheMessage) {
    CQxInvalidNamespaceException original(L"ns", L"/x");
    EXPECT_FALSE(original.HasPosition());
    original.SetPosition(12, 7);
    EXPECT_EQ(original.GetMessage(), L"ns\nPath: /x");
    const CQxException& asBase = original;
    const std::unique_ptr<CQxException> clone(asBase.Clone());
    const CQxValidationException copy(original);
    CQxException assigned(L"old", L"/keep");
    assigned = original;
    for (const CQxException* e :
         {static_cast<const CQxException*>(clone.get()), static_cast<const CQxException*>(&copy),
          static_cast<const CQxException*>(&assigned)}) {
        EXPECT_EQ(e->GetLine(), 12u);
        EXPECT_EQ(e->GetColumn(), 7u);
    }
    // Without a line there is no column either.
    original.SetPosition(0, 7);
    EXPECT_FALSE(original.HasPosition());
    EXPECT_EQ(original.GetColumn(), 0u);
}

TEST(Exceptions, AssignmentCopiesMessageAndInnerButKeepsThePath) {
    CQxException target(L"old", L"/keep");
    CQxException source(L"new", L"/other", CQxInvalidStateException(L"cause"));
    target = source;
    EXPECT_EQ(target.GetMessage(), source.GetMessage());
    EXPECT_EQ(target.GetPath(), L"/keep");
    ASSERT_NE(target.GetInnerException(), nullptr);
    EXPECT_NE(target.GetInnerException(), source.GetInnerException());
    EXPECT_EQ(target.GetInnerException()->GetMessage(), L"cause");

    CQxException plain(L"x");
    CQxException empty;
    empty = plain;
    EXPECT_EQ(empty.GetInnerException(), nullptr);
}
