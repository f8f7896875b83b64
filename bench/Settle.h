#pragma once

#include <QtCore/QAbstractAnimation>

/// Runs until nothing is left to paint: no posted event, no deferred delete, no update request.
void settle();

/// Takes the place of the clock of animations while it lives: each is at its end as soon as it has begun, so
/// that no measurement waits for one and none depends on the machine.
class FinishedAnimations : public QAnimationDriver
{
public:
    FinishedAnimations() { install(); }
    ~FinishedAnimations() override { uninstall(); }

    void advance() override;
    qint64 elapsed() const override { return m_elapsed; }

protected:
    void start() override;

private:
    qint64 m_elapsed = 0;
};
