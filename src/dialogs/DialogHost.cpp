#include "dialogs/DialogHost.h"

namespace editor {

DialogHost dialogHost;

} // namespace editor
