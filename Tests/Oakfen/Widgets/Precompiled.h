#pragma once
// For the tests of widgets, with the parts of the toolkit that most of them drive.
#include <QAbstractItemModel>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include "Tests/Oakfen/Precompiled.h"
