#include "kvex/ComObject.h"

#include "tests/classserver/TestServer.h"

#include <gtest/gtest.h>

namespace {

using kvex::Bstr;
using kvex::ComPointer;

class Named final : public kvex::ComObject<INamed> {
public:
    explicit Named(bool &alive) : alive_(alive) { alive_ = true; }
    HRESULT GetName(BSTR *name) noexcept final {
        *name = SysAllocStringLen(u"named", 5);
        return S_OK;
    }

private:
    ~Named() final { alive_ = false; }

    bool &alive_;
};

ULONG referencesOf(IUnknown &object) {
    object.AddRef();
    return object.Release();
}

TEST(ComPointer, TheLastOwnerReleasesTheObject) {
    bool alive = false;
    {
        ComPointer<INamed> first = kvex::makeComObject<Named>(alive);
        EXPECT_EQ(referencesOf(*first), 1U);
        {
            ComPointer<INamed> second;
            second = first;
            EXPECT_EQ(referencesOf(*first), 2U);
        }
        const ComPointer<INamed> third = std::move(first);
        EXPECT_FALSE(first); // NOLINT(bugprone-use-after-move): empty is what it then is
        EXPECT_EQ(referencesOf(*third), 1U);
        EXPECT_TRUE(alive);
    }
    EXPECT_FALSE(alive);
}

TEST(ComPointer, AssignmentReleasesWhatWasHeld) {
    bool firstAlive = false;
    bool secondAlive = false;
    ComPointer<Named> pointer = kvex::makeComObject<Named>(firstAlive);
    pointer = kvex::makeComObject<Named>(secondAlive);
    EXPECT_FALSE(firstAlive);
    EXPECT_TRUE(secondAlive);
    const ComPointer<Named> &itself = pointer;
    pointer = itself;
    EXPECT_TRUE(secondAlive);
    pointer.reset();
    EXPECT_FALSE(secondAlive);
}

TEST(ComPointer, DetachGivesTheReferenceAway) {
    bool alive = false;
    ComPointer<Named> pointer = kvex::makeComObject<Named>(alive);
    Named *object = pointer.detach();
    EXPECT_FALSE(pointer);
    EXPECT_TRUE(alive);
    EXPECT_EQ(object->Release(), 0U);
    EXPECT_FALSE(alive);
}

TEST(ComPointer, PutReleasesWhatWasHeld) {
    bool alive = false;
    ComPointer<Named> pointer = kvex::makeComObject<Named>(alive);
    EXPECT_EQ(*pointer.put(), nullptr);
    EXPECT_FALSE(alive);
}

TEST(ComPointer, AsFindsAnotherInterfaceOrNothing) {
    bool alive = false;
    const ComPointer<Named> pointer = kvex::makeComObject<Named>(alive);
    EXPECT_TRUE(pointer.as<IUnknown>());
    EXPECT_TRUE(pointer.as<INamed>());
    EXPECT_FALSE(pointer.as<ICounter>());
    EXPECT_FALSE(ComPointer<Named>().as<IUnknown>());
    EXPECT_EQ(referencesOf(*pointer), 1U);
}

TEST(Bstr, CopiesATextWithItsNulCharacters) {
    const std::u16string text(u"a\0b", 3);
    const Bstr copy(text);
    EXPECT_EQ(copy.text(), text);
    EXPECT_EQ(SysStringLen(copy.get()), 3U);
}

TEST(Bstr, ReadsAndGivesUtf8) {
    const Bstr text = Bstr::fromUtf8("\u20AC 5");
    EXPECT_EQ(text.view(), u"\u20AC 5");
    EXPECT_EQ(text.utf8(), "\u20AC 5");
    EXPECT_EQ(kvex::utf8Of(nullptr), "");
}

TEST(Bstr, NullIsAnEmptyText) {
    EXPECT_EQ(Bstr().view(), u"");
    EXPECT_EQ(kvex::viewOf(nullptr), u"");
    EXPECT_NE(Bstr(u"").get(), nullptr);
}

TEST(Bstr, ReceivesATextFromACall) {
    bool alive = false;
    const ComPointer<INamed> object = kvex::makeComObject<Named>(alive);
    Bstr name(u"before");
    ASSERT_EQ(object->GetName(name.put()), S_OK);
    EXPECT_EQ(name.view(), u"named");
}

TEST(Bstr, AnArgumentByReferenceIsSeenAndMayBeReplaced) {
    Bstr text(u"before");
    BSTR *argument = text.inOut();
    EXPECT_EQ(kvex::viewOf(*argument), u"before");
    SysFreeString(*argument);
    *argument = SysAllocStringLen(u"after", 5);
    EXPECT_EQ(text.view(), u"after");
}

TEST(Bstr, MovesAndGivesAway) {
    Bstr first(u"text");
    Bstr second(std::move(first));
    EXPECT_EQ(first.get(), nullptr); // NOLINT(bugprone-use-after-move): empty is what it then is
    first = std::move(second);
    EXPECT_EQ(first.view(), u"text");
    const BSTR given = first.detach();
    EXPECT_EQ(first.get(), nullptr);
    EXPECT_EQ(kvex::viewOf(given), u"text");
    SysFreeString(given);
}

} // namespace
