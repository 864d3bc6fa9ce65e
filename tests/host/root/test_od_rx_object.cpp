#include "host/root/od_rx_object.h"

#include <cppunit/extensions/HelperMacros.h>

#include <algorithm>

// The classes stand outside of a namespace, since the class record takes its name from the class.

class TestShape : public OdRxObject
{
    OD_DECLARE_CLASS(TestShape)
};
OD_DEFINE_ABSTRACT_CLASS(TestShape, OdRxObject)

class TestRound : public TestShape
{
    OD_DECLARE_CLASS(TestRound)
    TestRound() { ++s_alive; }
    TestRound(TestRound const& other) : TestShape(other) { ++s_alive; }
    ~TestRound() override { --s_alive; }
    inline static int s_alive = 0;
};
OD_DEFINE_CLASS(TestRound, TestShape)

class TestBall : public TestRound
{
    OD_DECLARE_CLASS(TestBall)
};
OD_DEFINE_CLASS(TestBall, TestRound)

/// An extension and at the same time the protocol it serves.
class TestProtocol : public OdRxObject
{
    OD_DECLARE_CLASS(TestProtocol)
    ~TestProtocol() override { ++s_destroyed; }
    inline static int s_destroyed = 0;
};
OD_DEFINE_CLASS(TestProtocol, OdRxObject)

namespace {

template <class Action>
OdResult codeOf(Action action)
{
    try {
        action();
    } catch (OdError const& error) {
        return error.code();
    }
    return eOk;
}

class OdRxObjectTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(OdRxObjectTest);
    CPPUNIT_TEST(classRecords);
    CPPUNIT_TEST(dictionary);
    CPPUNIT_TEST(createsObjects);
    CPPUNIT_TEST(casts);
    CPPUNIT_TEST(pointersCountReferences);
    CPPUNIT_TEST(pointersTestTheClass);
    CPPUNIT_TEST(extensionsAreFoundUpTheParents);
    CPPUNIT_TEST(oneExtensionForEachProtocol);
    CPPUNIT_TEST_SUITE_END();

public:
    void tearDown() override
    {
        for (OdRxClass* const cls : {TestShape::desc(), TestRound::desc(), TestBall::desc()})
            cls->delX(TestProtocol::desc());
        CPPUNIT_ASSERT_EQUAL_MESSAGE("objects left", 0, TestRound::s_alive);
    }

private:
    void classRecords()
    {
        CPPUNIT_ASSERT(TestBall::desc()->name() == L"TestBall");
        CPPUNIT_ASSERT(TestBall::desc()->myParent() == TestRound::desc());
        CPPUNIT_ASSERT(!OdRxObject::desc()->myParent());
        CPPUNIT_ASSERT(TestBall::desc()->isDerivedFrom(TestBall::desc()));
        CPPUNIT_ASSERT(TestBall::desc()->isDerivedFrom(OdRxObject::desc()));
        CPPUNIT_ASSERT(!TestRound::desc()->isDerivedFrom(TestBall::desc()));
        CPPUNIT_ASSERT(!TestBall::desc()->isDerivedFrom(TestProtocol::desc()));
        TestBall const ball;
        CPPUNIT_ASSERT(static_cast<OdRxObject const&>(ball).isA() == TestBall::desc());
        CPPUNIT_ASSERT(ball.isKindOf(TestShape::desc()) && !ball.isKindOf(TestProtocol::desc()));
    }

    void dictionary()
    {
        CPPUNIT_ASSERT(odrxClassDictionary::find(L"TestRound") == TestRound::desc());
        CPPUNIT_ASSERT(odrxClassDictionary::find(L"OdRxObject") == OdRxObject::desc());
        CPPUNIT_ASSERT(!odrxClassDictionary::find(L"testround"));
        CPPUNIT_ASSERT(!odrxClassDictionary::find(L""));
        auto const all = odrxClassDictionary::all();
        CPPUNIT_ASSERT_EQUAL(std::ptrdiff_t{1}, std::ranges::count(all, TestBall::desc()));
    }

    void createsObjects()
    {
        OdRxObjectPtr const object = TestBall::desc()->create();
        CPPUNIT_ASSERT(object->isA() == TestBall::desc());
        CPPUNIT_ASSERT_EQUAL(1, object->numRefs());
        CPPUNIT_ASSERT_EQUAL(eCreationFailed, codeOf([] { TestShape::desc()->create(); }));
    }

    void casts()
    {
        TestBall ball;
        OdRxObject* const object = &ball;
        CPPUNIT_ASSERT(odCast<TestRound>(object) == &ball);
        CPPUNIT_ASSERT(!odCast<TestProtocol>(object));
        CPPUNIT_ASSERT(!odCast<TestProtocol>(static_cast<OdRxObject const*>(object)));
        CPPUNIT_ASSERT(!odCast<TestBall>(static_cast<OdRxObject*>(nullptr)));
        CPPUNIT_ASSERT(odCastOrThrow<TestBall>(object) == &ball);
        CPPUNIT_ASSERT(!odCastOrThrow<TestBall>(static_cast<OdRxObject*>(nullptr)));
    }

    void pointersCountReferences()
    {
        OdSmartPtr<TestBall> first = new TestBall;
        {
            OdSmartPtr<TestBall> const second = first;
            OdSmartPtr<TestBall> const moved = std::move(first);
            CPPUNIT_ASSERT(first.isNull()); // NOLINT(bugprone-use-after-move): a moved pointer is null
            CPPUNIT_ASSERT_EQUAL(2, moved->numRefs());
            first = second;
        }
        CPPUNIT_ASSERT_EQUAL(1, first->numRefs());
        TestBall* const same = first.get();
        first = OdSmartPtr<TestBall>(same);
        CPPUNIT_ASSERT_EQUAL(1, first->numRefs());
        OdSmartPtr<TestBall> const copy = new TestBall(*first); // a copy begins without references
        CPPUNIT_ASSERT_EQUAL(1, copy->numRefs());
        first.release();
        first.release();
        CPPUNIT_ASSERT(first.isNull());
        CPPUNIT_ASSERT_EQUAL(1, TestRound::s_alive);
    }

    void pointersTestTheClass()
    {
        OdSmartPtr<TestRound> const round = new TestRound;
        OdSmartPtr<TestShape> const shape = round;
        OdSmartPtr<TestRound> const back = shape;
        CPPUNIT_ASSERT(back.get() == round.get());
        OdSmartPtr<TestBall> ball;
        try {
            ball = shape;
            CPPUNIT_FAIL("assigned to a pointer of another class");
        } catch (OdError_NotThatKindOfClass const& error) {
            CPPUNIT_ASSERT_EQUAL(eNotThatKindOfClass, error.code());
            CPPUNIT_ASSERT(error.fromClass() == TestRound::desc());
            CPPUNIT_ASSERT(error.toClass() == TestBall::desc());
            CPPUNIT_ASSERT_EQUAL(std::string("Object of class TestRound is not of class TestBall"),
                                 std::string(error.what()));
        }
        CPPUNIT_ASSERT(ball.isNull());
        CPPUNIT_ASSERT_EQUAL(3, round->numRefs());
        ball = OdSmartPtr<TestShape>();
        CPPUNIT_ASSERT(ball.isNull());
    }

    void extensionsAreFoundUpTheParents()
    {
        OdRxClass const* const protocol = TestProtocol::desc();
        OdSmartPtr<TestProtocol> const general = new TestProtocol;
        OdSmartPtr<TestProtocol> const special = new TestProtocol;
        TestShape::desc()->addX(protocol, general);
        CPPUNIT_ASSERT(TestBall::desc()->getX(protocol) == general.get());
        TestBall::desc()->addX(protocol, special);
        CPPUNIT_ASSERT(TestBall::desc()->getX(protocol) == special.get());
        CPPUNIT_ASSERT(TestRound::desc()->getX(protocol) == general.get());
        CPPUNIT_ASSERT(!OdRxObject::desc()->getX(protocol));
        CPPUNIT_ASSERT(!TestBall::desc()->getX(TestRound::desc()));
        TestBall::desc()->delX(protocol);
        CPPUNIT_ASSERT(TestBall::desc()->getX(protocol) == general.get());
    }

    void oneExtensionForEachProtocol()
    {
        OdRxClass const* const protocol = TestProtocol::desc();
        int const destroyed = TestProtocol::s_destroyed;
        TestRound::desc()->addX(protocol, new TestProtocol);
        OdSmartPtr<TestProtocol> const second = new TestProtocol;
        CPPUNIT_ASSERT_EQUAL(eDuplicateKey, codeOf([&] { TestRound::desc()->addX(protocol, second); }));
        CPPUNIT_ASSERT_EQUAL(1, second->numRefs());
        TestRound::desc()->delX(protocol);
        TestRound::desc()->delX(protocol); // there is none any more
        CPPUNIT_ASSERT(!TestRound::desc()->getX(protocol));
        CPPUNIT_ASSERT_EQUAL(destroyed + 1, TestProtocol::s_destroyed);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(OdRxObjectTest);

} // namespace
