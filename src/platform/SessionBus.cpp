#include "SessionBus.h"

#include <QByteArray>

#include <gio/gio.h>
#include <memory>

namespace {

constexpr guint patience = 300; // milliseconds; a bus that works takes a few

struct Unref {
    void operator()(GMainContext* context) const { g_main_context_unref(context); }
    void operator()(GSource* source) const { g_source_unref(source); }
    void operator()(GCancellable* cancellable) const { g_object_unref(cancellable); }
    void operator()(char* text) const { g_free(text); }
};

template <class Object>
using Owned = std::unique_ptr<Object, Unref>;

gboolean giveUp(gpointer cancellable) {
    g_cancellable_cancel(static_cast<GCancellable*>(cancellable));
    return G_SOURCE_REMOVE;
}

void connected(GObject* /*source*/, GAsyncResult* result, gpointer isOver) {
    // What came of it does not matter, as long as something did.
    if (GDBusConnection* bus = g_dbus_connection_new_for_address_finish(result, nullptr))
        g_object_unref(bus);
    *static_cast<bool*>(isOver) = true;
}

bool isSilent(const char* address) {
    const Owned<GMainContext> context(g_main_context_new());
    const Owned<GCancellable> cancellable(g_cancellable_new());
    const Owned<GSource> clock(g_timeout_source_new(patience));
    g_source_set_callback(clock.get(), giveUp, cancellable.get(), nullptr);
    g_source_attach(clock.get(), context.get());

    g_main_context_push_thread_default(context.get());
    bool isOver = false;
    g_dbus_connection_new_for_address(
        address,
        GDBusConnectionFlags(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, cancellable.get(), connected, &isOver);
    while (!isOver)
        g_main_context_iteration(context.get(), TRUE);
    g_main_context_pop_thread_default(context.get());
    g_source_destroy(clock.get());
    return g_cancellable_is_cancelled(cancellable.get());
}

} // namespace

void avoidSilentSessionBus() {
    const Owned<char> address(
        g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    if (address && isSilent(address.get()))
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
}
