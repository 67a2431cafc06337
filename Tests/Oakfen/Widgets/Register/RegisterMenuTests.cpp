#include <QPointer>

#include "Tests/Oakfen/Widgets/Register/RegisterWindowFixture.h"

namespace oakfen {

using RegisterMenuWindow = testing::RegisterWindow;

TEST_F(RegisterMenuWindow, HasAMenuForOneEntry) {
    const auto menu = widget->makeContextMenu({cardPayment.id});
    EXPECT_EQ(titles(*menu),
              (std::vector<std::string>{"Edit", "Duplicate", "Make Reminder…", "Go to Card", "-",
                                        "Mark As", "Set Category", "-", "Delete"}));
    EXPECT_EQ(titles(*action(*menu, "Mark As")->menu()),
              (std::vector<std::string>{"Uncleared", "Cleared", "Reconciled"}));
    EXPECT_FALSE(action(*menu, "Set Category")->isEnabled());
}

TEST_F(RegisterMenuWindow, HasAMenuForSeveralEntries) {
    const auto menu = widget->makeContextMenu({shop.id, pay.id});
    EXPECT_EQ(titles(*menu), (std::vector<std::string>{"Edit Several…", "-", "Mark As",
                                                       "Set Category", "-", "Delete"}));
    action(*action(*menu, "Mark As")->menu(), "Reconciled")->trigger();
    EXPECT_EQ(stored(shop.id).cleared, ClearedState::reconciled);
    EXPECT_EQ(stored(pay.id).cleared, ClearedState::reconciled);
    action(*menu, "Set Category")->trigger();
    EXPECT_TRUE(test.appState->sheet());
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
        Account changed = card;
        changed.name = "Card & Co";
        upsert(library, changed);
    });
    const auto menu = widget->makeContextMenu({cardPayment.id});
    EXPECT_NE(action(*menu, "Go to Card & Co"), nullptr);
}

} // namespace oakfen
