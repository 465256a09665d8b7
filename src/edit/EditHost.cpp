#include "edit/EditHost.h"

namespace editor {

EditHost editHost;

} // namespace editor
