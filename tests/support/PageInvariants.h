#pragma once

#include "ProbePage.h"

#include <QtCore/QString>

/// What holds for a page at every moment, whatever its user and its server do. Says what is broken; null when
/// all is well.
QString brokenInvariant(const ProbePage &page);
