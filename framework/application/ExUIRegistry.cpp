#include "framework/application/ExUIRegistry.h"

ExUIRegistry::~ExUIRegistry() = default;
