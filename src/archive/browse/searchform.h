// In this window the user states what to look for in the archive.
#pragma once

#include "archive/browse/searchcriteria.h"
#include "archive/core/archivecontext.h"
#include "toolkit/widgets/form.h"

#include <array>

class ChoiceBox;
class QLineEdit;
class QRadioButton;

class SearchForm : public Form, public SearchCriteria {
    Q_OBJECT

public:
    using ShowResult = std::function<void()>;

    SearchForm(ArchiveContext& context, ShowResult showResult);

    QLineEdit* txtArtist = nullptr;
    QLineEdit* txtSong = nullptr;
    QLineEdit* txtAlbum = nullptr;
    QLineEdit* txtYear = nullptr;
    QLineEdit* txtComment = nullptr;
    QLineEdit* txtVolum = nullptr;
    QLineEdit* txtPath = nullptr;
    std::array<QRadioButton*, 3> Option1{}; // from 1: "And", "Or"
    ChoiceBox* Combo1 = nullptr;
    QLineEdit* CustomExt = nullptr; // the extension in force, also while it is hidden
    QLabel* Label13 = nullptr;
    QPushButton* cmdSearch = nullptr;
    QPushButton* cmdCancel = nullptr;

    void Combo1_Click();
    void cmdSearch_Click();
    void cmdCancel_Click();

    bool combinesWithAnd() const override;
    Criteria criteria() const override;
    void markEmptyBoxes() override;
    void emptyMarkedBoxes() override;

protected:
    void Form_Load() override;

private:
    void makeControls();
    void place();
    void showCustomExt(bool visible);
    std::array<QLineEdit*, 7> criterionBoxes() const;

    ShowResult m_showResult;
    QLabel* m_heading = nullptr;
    QLabel* m_hint = nullptr;
    QLabel* m_example = nullptr;
    QLabel* m_boolean = nullptr;
    QLabel* m_type = nullptr;
    std::array<QLabel*, 7> m_labels{}; // beside the boxes, in their order
};
