// Every form of the program, by its class name.
#include "app/form_registry.h"

namespace jxc {

void registerForms(FormRegistry &registry) {
    Q_UNUSED(registry)
}

} // namespace jxc
