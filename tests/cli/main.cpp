// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CommandLine.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    return static_cast<int>(trackwise::cli::runCommand({argv + 1, argv + argc}));
}
