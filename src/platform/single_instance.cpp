#include "platform/single_instance.h"

namespace platform {

std::string& SingleInstance::Suffix() {
    static std::string suffix;
    return suffix;
}

}  // namespace platform
