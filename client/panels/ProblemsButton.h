#pragma once

#include "platform/dicomio/DicomScanner.h"

#include <QPushButton>

class QTreeWidget;

/// Says in the status line that a scan was cancelled and how many of its files could not be used; a
/// click shows which and why. Hidden when there is nothing to tell.
class ProblemsButton final : public QPushButton
{
    Q_OBJECT

public:
    explicit ProblemsButton(QWidget *parent = nullptr);

    /// @param isIncomplete whether the scan was cancelled.
    void setProblems(const McDArray<DicomScanner::Problem> &problems, bool isIncomplete);
    /// What is said of a list whose scan was cancelled.
    [[nodiscard]] static QString incompleteText();

private:
    void showDetails();
    [[nodiscard]] QTreeWidget *createList() const;

    McDArray<DicomScanner::Problem> m_problems;
    bool m_isIncomplete = false;
};
