// The choice of a category.
// SPDX-License-Identifier: MIT
#include <desktop/forms/CategoryChoice.h>
#include <desktop/forms/FormFixture.h>

namespace orvo::desktop {
namespace {

class CategoryChoiceTest : public testing::Test, protected FormStore {
protected:
    std::optional<int> Choose(Hands::Step step) {
        const Hands hands({std::move(step)});
        return ChooseCategory(nullptr, own.toDos);
    }
    int Add(const char* name) {
        EXPECT_EQ(AddCategory(own.toDos, name), 0);
        return CategoryIndex(own.toDos, name);
    }
};

Hands::Step Find(const char* text, const std::vector<Qt::Key>& keys) {
    return [=](QDialog& dialog) {
        auto* find = dialog.findChild<QLineEdit*>();
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(find, &event);
        for (const Qt::Key key : keys) QTest::keyClick(find, key);
    };
}

TEST_F(CategoryChoiceTest, TypingFindsOneByAnyPartOfItsName) {
    const int work = Add("仕事 one");
    const int works = Add("仕事 two");

    EXPECT_EQ(Choose(Find("仕事", {Qt::Key_Return})), work);
    EXPECT_EQ(Choose(Find("仕事", {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})), works);
    EXPECT_EQ(Choose(Find("TWO", {Qt::Key_Return})), works);
    EXPECT_EQ(Choose(Find("nothing such", {Qt::Key_Return, Qt::Key_Escape})), std::nullopt);
}

}  // namespace
}  // namespace orvo::desktop
