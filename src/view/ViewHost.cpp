#include "view/ViewHost.h"

namespace editor {

ViewHost viewHost;

} // namespace editor
