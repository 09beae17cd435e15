#include "mimedata.h"

namespace ta::ui {

MimeData::MimeData(QObject *parent) : QObject(parent) {}

MimeData::~MimeData() = default;

} // namespace ta::ui
