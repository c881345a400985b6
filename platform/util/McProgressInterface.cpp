#include "platform/util/McProgressInterface.h"

McProgressInterface::~McProgressInterface() = default;

void McProgressInterface::startWorking(const char * /*text*/) { }

void McProgressInterface::startWorkingNoStop(const char * /*text*/) { }

void McProgressInterface::stopWorking() { }

int McProgressInterface::wasInterrupted()
{
    return 0;
}

void McProgressInterface::setProgressValue(float /*value*/) { }

void McProgressInterface::setProgressInfo(const char * /*text*/) { }
