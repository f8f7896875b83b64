#pragma once

#include "ScriptedStatisticsManager.h"

#include <string>

/// Where made-up answers of the statistics service get their content from, one value after another.
class AnswerSource
{
public:
    virtual ~AnswerSource() = default;

    /// Whether the next operation is refused.
    virtual bool refuses() = 0;
    /// A number of rows from 0 to \a most.
    virtual int rows(int most) = 0;
    /// A figure, a code or a page number.
    virtual int number() = 0;
    virtual int organisation() = 0;
    virtual std::string uid() = 0;
    virtual std::string name() = 0;
    virtual std::string period() = 0;
};

/// Makes every operation of \a manager answer from \a source, which must outlive the last call.
void answerFrom(ScriptedStatisticsManager &manager, AnswerSource &source);
