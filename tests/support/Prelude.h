#pragma once

// What the tests of the framework have in common: the toolkit, the fakes and the usual containers.
// Each is a program of its own, so the literals of the toolkit are there without a prefix.

#include "framework/notification/ExNotifiables.h"
#include "platform/properties/KxPropertyPool.h"
#include "tests/support/FakeApplication.h"
#include "tests/support/FakeViewer.h"
#include "tests/support/FakeViewerManager.h"
#include "tests/support/NextDialog.h"
#include "tests/support/PrivateSettings.h"
#include "tests/support/Recorder.h"
#include "tests/support/Rows.h"

#include <QtTest>
#include <QtWidgets>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

/// A test whose settings, rights and logs are its own.
class TestWithSettings : public QObject
{
protected:
    PrivateSettings m_settings;
};

inline ExNotifiables &bus()
{
    return ExNotifiables::getInstance();
}
