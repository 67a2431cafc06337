#pragma once

#include <QObject>
#include <QPointer>
#include <optional>

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

class SheetHost;
class SheetScaffold;

/// Opens the sheet that the application's state names, and tells the state when it is closed.
class SheetPresenter final : public QObject {
    Q_OBJECT

public:
    SheetPresenter(AppEnvironment& environment, SheetHost& host);

private:
    void refresh();
    void putAway();

    AppEnvironment& environment_;
    SheetHost& host_;
    std::optional<ActiveSheet> shown_;
    QPointer<SheetScaffold> sheet_;
    Subscription subscription_;
};

} // namespace oakfen
