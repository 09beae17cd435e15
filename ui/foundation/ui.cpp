#include "ui.h"

namespace ta::ui {

Ui::~Ui() = default;

} // namespace ta::ui
