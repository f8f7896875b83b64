#pragma once

#include <TalvixWidgets/AppLanguageTr.h>
#include <TalvixWidgets/TalvixWidgetsGlobal.h>

#include <functional>

/// What is asked of the host's texts. Every language of ours has one form of a text, so only who listens here
/// can tell which form a page has asked for.
namespace TextRequests {

using Listener = std::function<void(const QString &key, AppLanguageTr::CaptitalType type, int value)>;

/// \a listener hears of each request, before it is answered; an empty one ends that.
TALVIXWIDGETS_EXPORT void listen(Listener listener);

} // namespace TextRequests
