#pragma once

#include <QtCore/qglobal.h>

#ifdef TALVIXPREVIEW_LIBRARY
#define TALVIXPREVIEW_EXPORT Q_DECL_EXPORT
#else
#define TALVIXPREVIEW_EXPORT Q_DECL_IMPORT
#endif

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

class BaseWidget;

/// Makes a statistics page of kind \a serviceType (1 to 9) below \a parent; the caller owns it.
///
/// Kinds 5 and 6 load no organisation tree of their own and would ask for nothing. Their page takes the tree
/// in as another kind at each show, and is alive like the others.
TALVIXPREVIEW_EXPORT BaseWidget *createStatisticsPage(int serviceType, QWidget *parent);
