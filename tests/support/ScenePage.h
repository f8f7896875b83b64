#pragma once

#include "PageScene.h"

/// A page whose form is set up, over a scene of its own.
struct ScenePage : PageScene, ProbePage
{
    using PageScene::fillTree;

    explicit ScenePage(int type = 1)
        : ProbePage(type)
    {
        initForm();
    }
};

/// A page on show, over a scene of its own.
struct ShownPage : PageScene, ProbePage
{
    using PageScene::fillTree;

    explicit ShownPage(int type = 1)
        : ProbePage(type)
    {
        showPage(*this);
    }
};
