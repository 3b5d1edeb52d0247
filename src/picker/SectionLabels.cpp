// SPDX-License-Identifier: GPL-3.0-or-later
#include "picker/SectionLabels.h"

namespace trackwise {

QStringList fittedLabels(const QStringList &labels, int places)
{
    if (labels.size() <= places)
        return labels;
    const qsizetype letters = (places + 1) / 2;
    if (letters < 2)
        return {};
    QStringList fitted;
    for (qsizetype i = 0; i < letters; ++i) {
        if (i > 0)
            fitted.append(QStringLiteral("•"));
        fitted.append(labels.at(i * (labels.size() - 1) / (letters - 1)));
    }
    return fitted;
}

} // namespace trackwise
