#pragma once

#include "framework/editors/ExEditorRegion.h"

#include <QList>
#include <QSplitter>
#include <QStringList>

class ExEditorRegion::Private
{
public:
    struct Closed
    {
        ExEditor *editor;
        int subRegion;
    };

    QSplitter *splitter = nullptr;
    QList<ExEditorContainer *> containers;
    QStringList titles;
    /// The editors that belong here, docked, closed or floating; they sign off when they go.
    QList<ExEditor *> members;
    QList<Closed> closed;
    int minimum = 0;
    /// As they were before a drag has shown the sub-regions without an editor.
    QList<int> sizesBeforeDrag;
    QList<bool> emptyBeforeDrag;
    bool isHiddenWhenEmpty = false;
    bool isEnding = false;
};
