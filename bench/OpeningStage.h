#pragma once

#include <QtWidgets/QWidget>

#include <memory>

/// The tab host with its four pages, as a host of the plug-in opens it.
std::unique_ptr<QWidget> tabHost();

/// One page's form in bare widgets.
std::unique_ptr<QWidget> bareForm();

/// The floor: the same forms in bare widgets and tabs.
std::unique_ptr<QWidget> bareForms();
