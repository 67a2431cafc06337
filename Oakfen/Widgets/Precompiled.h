#pragma once
// The headers that nearly every widget needs, compiled once. Small on purpose: never an umbrella.
#include <QBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QString>
#include <QWidget>
#include <memory>
#include <optional>
#include <string>
#include <vector>
