#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// What the command line asks for.
struct Options
{
    QString database; ///< empty: the usual place
    bool generate = false;
    qint64 events = 0; ///< 0: as many as the usual samples have
    QString importFile;
    bool skipBadLines = false;
    QString language; ///< empty: the one that was chosen last
    int service = 0;  ///< 0: none in particular
    int latency = 0;
    int failureRate = 0;
    QDateTime now; ///< invalid: the computer's clock
    QString snapshotFolder;
    bool noWindow = false;
    bool log = false;

    bool wantsPictures() const { return !snapshotFolder.isEmpty(); }
    bool wantsWindow() const { return !wantsPictures() && !noWindow; }
    /// Figures that are made for this run alone: pictures, and any moment that is not the present, must not
    /// depend on what was done before.
    bool inMemory() const { return database.isEmpty() && (wantsPictures() || now.isValid()); }
    /// Neither a moment nor figures were asked for: the sample world may choose when it lives.
    bool leavesMomentOpen() const { return !now.isValid() && database.isEmpty() && importFile.isEmpty(); }
};

/// The command line as it was understood.
struct CommandLine
{
    enum class Wish { Run, Help, Version };

    Wish wish = Wish::Run;
    Options options;
    QString problem; ///< one sentence for the user; empty when all is well

    /// Needs no application object.
    static CommandLine parse(const QStringList &arguments);
    /// Needs an application object, whose name it uses.
    static QString helpText();
};
