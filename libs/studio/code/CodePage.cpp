#include <studio/code/CodePage.h>

namespace studio {

CodePage::CodePage(QWidget *parent) : QWidget(parent) {}
CodePage::~CodePage() = default;

void CodePage::setKind(codekit::CodeKind) {}

} // namespace studio
