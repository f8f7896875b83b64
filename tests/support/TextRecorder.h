#pragma once

#include <devhost/widgets/TextRequests.h>

#include <QtCore/QStringList>

#include <functional>

/// Keeps which texts are asked for while it lives, each as its key, a blank and its form: 1 sentence,
/// 2 button, 3 title. A number that is asked for stands behind.
class TextRecorder
{
public:
    TextRecorder()
    {
        TextRequests::listen([this](const QString &key, AppLanguageTr::CaptitalType type, int value) {
            asked.append(key + QLatin1Char(' ') + QString::number(type));
            if (value != -1)
                asked.last() += QStringLiteral(" number %1").arg(value);
            if (whenAsked)
                whenAsked(key);
        });
    }
    ~TextRecorder() { TextRequests::listen({}); }
    Q_DISABLE_COPY(TextRecorder)

    QStringList asked;
    /// Runs at each request, so that a test can look at what stands by then.
    std::function<void(const QString &key)> whenAsked;
};
