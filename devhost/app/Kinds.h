#pragma once

#include <QtCore/QString>

#include <vector>

/// A kind of statistics as the program offers it.
struct Kind
{
    int service;
    QString name;    ///< in file names and on standard output
    QString textKey; ///< what it is called in the window
};

/// All nine, by number.
const std::vector<Kind> &allKinds();

/// The tab widget of the plug-in opens the kinds up to this one.
constexpr int lastKindInTabs = 4;
