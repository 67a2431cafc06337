#include <QPointer>

#include "Tests/Oakfen/Widgets/Register/RegisterWindowFixture.h"

namespace oakfen {

using RegisterMenuWindow = testing::RegisterWindow;

TEST_F(RegisterMenuWindow, HasAMenuForOneEntry) {
    const auto menu = widget->makeContextMenu({cardPayment.id});
    EXPECT_EQ(titles(*menu), (std::vector<std::string>{"Edit", "Duplicate", "Go to Card", "-",
                                                       "Mark As", "Set Category", "-", "Delete"}));
    EXPECT_EQ(titles(*action(*menu, "Mark As")->menu()),
              (std::vector<std::string>{"Uncleared", "Cleared", "Reconciled"}));
    EXPECT_EQ(titles(*action(*menu, "Set Category")->menu()),
              (std::vector<std::string>{"Food", "-", "Salary"}));
}

TEST_F(RegisterMenuWindow, HasAMenuForSeveralEntries) {
    const auto menu = widget->makeContextMenu({shop.id, pay.id});
    EXPECT_EQ(titles(*menu), (std::vector<std::string>{"Mark As", "Set Category", "-", "Delete"}));
    action(*action(*menu, "Mark As")->menu(), "Reconciled")->trigger();
    EXPECT_EQ(stored(shop.id).cleared, ClearedState::reconciled);
    EXPECT_EQ(stored(pay.id).cleared, ClearedState::reconciled);
    action(*action(*menu, "Set Category")->menu(), "Salary")->trigger();
    EXPECT_EQ(stored(shop.id).categoryID, salary.id);
}

TEST_F(RegisterMenuWindow, OpensAMenuThatEndsByItself) {
    click(2, "payee");
    Q_EMIT widget->table()->customContextMenuRequested(QPoint(5, 5));
    const QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    EXPECT_EQ(titles(*menu).front(), "Edit");
    menu->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(menu);
}

TEST_F(RegisterMenuWindow, OpensNoMenuWithoutASelection) {
    Q_EMIT widget->table()->customContextMenuRequested(QPoint(5, 5));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(RegisterMenuWindow, ReadsTheNamesInItsMenuToTheLetter) {
    test.store->mutate("Edit", [this](Library& library) {
        library.categories.edit(0).name = "Food & Drink";
        Account changed = card;
        changed.name = "Card & Co";
        upsert(library, changed);
    });
    const auto menu = widget->makeContextMenu({cardPayment.id});
    EXPECT_NE(action(*menu, "Go to Card & Co"), nullptr);
    EXPECT_NE(action(*action(*menu, "Set Category")->menu(), "Food & Drink"), nullptr);
}

} // namespace oakfen
