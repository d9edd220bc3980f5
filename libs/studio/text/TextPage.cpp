#include <studio/text/TextPage.h>

namespace studio {

TextPage::TextPage(QWidget *parent) : QWidget(parent) {}

TextPage::~TextPage() = default;

} // namespace studio
