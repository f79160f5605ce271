// These own GStreamer's and GLib's reference-counted things.
#pragma once

#include <gst/gst.h>

#include <memory>

struct GstRelease {
    void operator()(void* object) const { gst_object_unref(object); }
};
struct GlibRelease {
    void operator()(void* memory) const { g_free(memory); }
};
struct GlibErrorRelease {
    void operator()(GError* error) const { g_error_free(error); }
};

template <typename T>
using GstPointer = std::unique_ptr<T, GstRelease>;
template <typename T>
using GlibPointer = std::unique_ptr<T, GlibRelease>;
using GlibError = std::unique_ptr<GError, GlibErrorRelease>;
