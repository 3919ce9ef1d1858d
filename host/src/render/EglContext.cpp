#include "render/EglContext.h"

#include <EGL/eglext.h>
#define GL_GLEXT_PROTOTYPES
#include <GL/glcorearb.h>

#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

namespace vexhost {
namespace {

std::string eglErrorName(EGLint code) {
    switch (code) {
        case EGL_SUCCESS:
            return "EGL_SUCCESS";
        case EGL_NOT_INITIALIZED:
            return "EGL_NOT_INITIALIZED";
        case EGL_BAD_ACCESS:
            return "EGL_BAD_ACCESS";
        case EGL_BAD_ALLOC:
            return "EGL_BAD_ALLOC";
        case EGL_BAD_ATTRIBUTE:
            return "EGL_BAD_ATTRIBUTE";
        case EGL_BAD_CONFIG:
            return "EGL_BAD_CONFIG";
        case EGL_BAD_CONTEXT:
            return "EGL_BAD_CONTEXT";
        case EGL_BAD_DISPLAY:
            return "EGL_BAD_DISPLAY";
        case EGL_BAD_MATCH:
            return "EGL_BAD_MATCH";
        case EGL_BAD_PARAMETER:
            return "EGL_BAD_PARAMETER";
        case EGL_BAD_SURFACE:
            return "EGL_BAD_SURFACE";
        default:
            return "EGL error " + std::to_string(code);
    }
}

std::string lastEglError(const char* call) {
    return std::string(call) + " failed (" + eglErrorName(eglGetError()) + ")";
}

bool hasExtension(const char* list, const char* name) {
    if (list == nullptr) {
        return false;
    }
    const std::size_t length = std::strlen(name);
    for (const char* p = std::strstr(list, name); p != nullptr; p = std::strstr(p + 1, name)) {
        const bool startsWord = p == list || p[-1] == ' ';
        const bool endsWord = p[length] == '\0' || p[length] == ' ';
        if (startsWord && endsWord) {
            return true;
        }
    }
    return false;
}

// Creates an OpenGL 3.3 core context on an initialised display, or returns EGL_NO_CONTEXT and
// the reason in why.
EGLContext createCoreContext(EGLDisplay display, std::string& why) {
    const char* extensions = eglQueryString(display, EGL_EXTENSIONS);
    if (!hasExtension(extensions, "EGL_KHR_surfaceless_context")) {
        why = "the display lacks EGL_KHR_surfaceless_context";
        return EGL_NO_CONTEXT;
    }
    if (eglBindAPI(EGL_OPENGL_API) != EGL_TRUE) {
        why = "OpenGL is not supported (" + lastEglError("eglBindAPI") + ")";
        return EGL_NO_CONTEXT;
    }
    EGLConfig config = EGL_NO_CONFIG_KHR;
    if (!hasExtension(extensions, "EGL_KHR_no_config_context")) {
        // The config only has to allow OpenGL: nothing is ever drawn to an EGL surface.
        const EGLint wanted[] = {EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT, EGL_NONE};
        EGLint count = 0;
        if (eglChooseConfig(display, wanted, &config, 1, &count) != EGL_TRUE || count < 1) {
            why = "no EGL config supports OpenGL";
            return EGL_NO_CONTEXT;
        }
    }
    // Not forward-compatible on purpose: lines wider than one pixel stay available for the
    // supersampled pictures.
    const EGLint attributes[] = {EGL_CONTEXT_MAJOR_VERSION,
                                 3,
                                 EGL_CONTEXT_MINOR_VERSION,
                                 3,
                                 EGL_CONTEXT_OPENGL_PROFILE_MASK,
                                 EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT,
                                 EGL_NONE};
    EGLContext context = eglCreateContext(display, config, EGL_NO_CONTEXT, attributes);
    if (context == EGL_NO_CONTEXT) {
        why = "no OpenGL 3.3 core context (" + lastEglError("eglCreateContext") + ")";
    }
    return context;
}

bool initialise(EGLDisplay display, std::string& why) {
    if (display == EGL_NO_DISPLAY) {
        why = "no display";
        return false;
    }
    EGLint major = 0;
    EGLint minor = 0;
    if (eglInitialize(display, &major, &minor) != EGL_TRUE) {
        why = lastEglError("eglInitialize");
        return false;
    }
    return true;
}

}  // namespace

EglContext::EglContext() {
    const char* clientExtensions = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    auto getPlatformDisplay = reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(
        eglGetProcAddress("eglGetPlatformDisplayEXT"));
    if (getPlatformDisplay == nullptr || !hasExtension(clientExtensions, "EGL_EXT_platform_base")) {
        throw std::runtime_error(
            "Cannot start OpenGL rendering: the EGL library has no eglGetPlatformDisplayEXT "
            "(EGL_EXT_platform_base missing)");
    }

    std::vector<std::string> failures;
    auto tryDisplay = [&](EGLDisplay display, const std::string& name) {
        std::string why;
        if (initialise(display, why)) {
            context_ = createCoreContext(display, why);
            if (context_ != EGL_NO_CONTEXT) {
                display_ = display;
                return true;
            }
        }
        failures.push_back(name + ": " + why);
        return false;
    };

    bool found = false;
    if (hasExtension(clientExtensions, "EGL_MESA_platform_surfaceless")) {
        found = tryDisplay(
            getPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr),
            "surfaceless platform");
    } else {
        failures.push_back("surfaceless platform: not offered by the EGL library");
    }

    auto queryDevices =
        reinterpret_cast<PFNEGLQUERYDEVICESEXTPROC>(eglGetProcAddress("eglQueryDevicesEXT"));
    if (!found && queryDevices != nullptr &&
        hasExtension(clientExtensions, "EGL_EXT_platform_device")) {
        EGLint count = 0;
        std::vector<EGLDeviceEXT> devices(16);
        if (queryDevices(static_cast<EGLint>(devices.size()), devices.data(), &count) != EGL_TRUE ||
            count == 0) {
            failures.push_back("device platform: no EGL devices");
        }
        for (EGLint i = 0; i < count && !found; ++i) {
            found = tryDisplay(getPlatformDisplay(EGL_PLATFORM_DEVICE_EXT, devices[i], nullptr),
                               "EGL device " + std::to_string(i));
        }
    } else if (!found) {
        failures.push_back("device platform: not offered by the EGL library");
    }

    if (!found) {
        std::string message = "Cannot start OpenGL rendering: ";
        for (std::size_t i = 0; i < failures.size(); ++i) {
            message += (i == 0 ? "" : "; ") + failures[i];
        }
        throw std::runtime_error(message);
    }

    try {
        makeCurrent();
    } catch (...) {
        eglDestroyContext(display_, context_);
        throw;
    }
    const auto* renderer = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    const auto* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    description_ = std::string(renderer != nullptr ? renderer : "unknown renderer") + ", OpenGL " +
                   (version != nullptr ? version : "of unknown version");
}

EglContext::~EglContext() {
    if (eglGetCurrentContext() == context_) {
        eglMakeCurrent(display_, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    }
    eglDestroyContext(display_, context_);
    // The display is not terminated: EGL hands every caller the same display for a platform, so
    // terminating it would pull the contexts of other renderers in the process from under them.
}

void EglContext::makeCurrent() {
    if (eglGetCurrentContext() == context_) {
        return;
    }
    // The current client API is per thread; a renderer may be used from a thread other than the
    // one that created it.
    eglBindAPI(EGL_OPENGL_API);
    if (eglMakeCurrent(display_, EGL_NO_SURFACE, EGL_NO_SURFACE, context_) != EGL_TRUE) {
        throw std::runtime_error("Cannot use the OpenGL context: " +
                                 lastEglError("eglMakeCurrent"));
    }
}

}  // namespace vexhost
