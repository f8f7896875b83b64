# Controls, texts and theme of TalvixWidgets; paths are relative to devhost/.
target_sources(TalvixWidgets PRIVATE
    widgets/AppLanguageTr.cpp
    widgets/AppStyleHelper.cpp
    widgets/AppTranslationHelper.cpp
    widgets/BaseHelper.cpp
    widgets/BaseStyleWidget.cpp
    widgets/BaseWidget.cpp
    widgets/HostSettings.cpp
    widgets/HostSettings.h
    widgets/LanguageTexts.cpp
    widgets/LanguageTexts.h
    widgets/OrganisationTreeModel.cpp
    widgets/OrganisationTreeModel.h
    widgets/QssFormatHelper.cpp
    widgets/SnapClasses.h
    widgets/SpanGrid.cpp
    widgets/SpanGrid.h
    widgets/TextRequests.h
    widgets/Toast.cpp
    widgets/Toast.h
    widgets/ZrCalendarWidget.cpp
    widgets/ZrChartView.cpp
    widgets/ZrComboBoxWithTree.cpp
    widgets/ZrDialog.cpp
    widgets/ZrLoaddingWidget.cpp
    widgets/ZrMessageBoxFlowDownWidget.cpp
    widgets/ZrPushButton.cpp
    widgets/ZrTreeView.cpp
    widgets/theme/theme.qrc)

# The texts, compiled into the library under the names that the languages have there.
talvix_add_texts(TalvixWidgets widgets/texts/talvix)
