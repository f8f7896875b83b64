#pragma once

#include <QtCore/qglobal.h>

#ifdef TALVIXWIDGETS_LIBRARY
#define TALVIXWIDGETS_EXPORT Q_DECL_EXPORT
#else
#define TALVIXWIDGETS_EXPORT Q_DECL_IMPORT
#endif
