#pragma once

#include "platform/dicomio/DicomScanner.h"

#include <QPushButton>

/// Says in the status line how many files of a scan could not be used; a click shows which and why.
/// Hidden when there are none.
class ProblemsButton final : public QPushButton
{
    Q_OBJECT

public:
    explicit ProblemsButton(QWidget *parent = nullptr);

    void setProblems(const McDArray<DicomScanner::Problem> &problems);

private:
    void showDetails();

    McDArray<DicomScanner::Problem> m_problems;
};
