#include "toolkit/pages/previewform.h"

#include "toolkit/pages/reportrows.h"

PreviewForm::PreviewForm(const PreviewSeams& seams, ReportDesign design)
    : Form(seams.dialogs, seams.program, design.name.toLatin1().constData(), design.caption)
{
}

PreviewForm::~PreviewForm() = default;

void PreviewForm::Form_Load()
{
    readRows();
}
