// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTest>

#include <chrono>

namespace trackwise {}

// What each source file of a test begins with. Headers that tests share do not include this one.
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace trackwise;
