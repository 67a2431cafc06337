#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <vector>

class QWidget;

namespace oakfen {

/// While Alt is held, a letter is underlined in each button and in the label of each field that the
/// window shows, and leads there. The letters are given out anew each time among what can be seen,
/// so that none leads to two places whatever a form shows, and texts stay what they are.
class MnemonicKeys final : public QObject {
    Q_OBJECT

public:
    explicit MnemonicKeys(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Marked {
        QPointer<QWidget> widget;
        QString before;
        QString now;
    };

    void show(QWidget& window);
    void hide();

    std::vector<Marked> marked_;
};

} // namespace oakfen
