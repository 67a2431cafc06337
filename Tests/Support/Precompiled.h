#pragma once
// What nearly every test includes and takes long to read, compiled once for each program of tests.
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
