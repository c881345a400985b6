#pragma once

#include "framework/dispatch/ExActionHandlerCore.h"

/// Base of receivers of actions. The core is a virtual base: a class that is a receiver in several
/// ways is still one.
class MOVARA_FRAMEWORK_EXPORT ExActionHandler : public virtual ExActionHandlerCore
{ };
