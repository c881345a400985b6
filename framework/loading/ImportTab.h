#pragma once

#include <QCoreApplication>

/// Translation context of the texts around loading.
struct ImportTab
{
    Q_DECLARE_TR_FUNCTIONS(ImportTab)
};
