#include "SessionBus.h"

#include <QByteArray>

#include <gio/gio.h>
#include <memory>

namespace {

/** Milliseconds. What works takes a few; what is late is done without, so that nobody waits. */
constexpr guint patience = 300;

struct Unref {
    void operator()(GMainContext* context) const { g_main_context_unref(context); }
    void operator()(GSource* source) const { g_source_unref(source); }
    void operator()(gpointer object) const { g_object_unref(object); }
    void operator()(char* text) const { g_free(text); }
};

template <class Object>
using Owned = std::unique_ptr<Object, Unref>;

struct Question {
    Owned<GCancellable> cancellable{g_cancellable_new()};
    Owned<GDBusConnection> bus;
    bool portalChoosesFiles = false;
    bool isOver = false;
};

gboolean giveUp(gpointer cancellable) {
    g_cancellable_cancel(static_cast<GCancellable*>(cancellable));
    return G_SOURCE_REMOVE;
}

void portalAnswered(GObject* bus, GAsyncResult* result, gpointer asked) {
    auto& question = *static_cast<Question*>(asked);
    GVariant* version =
        g_dbus_connection_call_finish(reinterpret_cast<GDBusConnection*>(bus), result, nullptr);
    question.portalChoosesFiles = version != nullptr;
    if (version)
        g_variant_unref(version);
    question.isOver = true;
}

// A portal that has no program to choose files with does not have this interface either.
void busAnswered(GObject* /*source*/, GAsyncResult* result, gpointer asked) {
    auto& question = *static_cast<Question*>(asked);
    question.bus.reset(g_dbus_connection_new_for_address_finish(result, nullptr));
    if (!question.bus) {
        question.isOver = true;
        return;
    }
    g_dbus_connection_call(question.bus.get(), "org.freedesktop.portal.Desktop",
                           "/org/freedesktop/portal/desktop", "org.freedesktop.DBus.Properties",
                           "Get",
                           g_variant_new("(ss)", "org.freedesktop.portal.FileChooser", "version"),
                           reinterpret_cast<const GVariantType*>("(v)"), G_DBUS_CALL_FLAGS_NONE, -1,
                           question.cancellable.get(), portalAnswered, asked);
}

void ask(Question& question, const char* address) {
    const Owned<GMainContext> context(g_main_context_new());
    const Owned<GSource> clock(g_timeout_source_new(patience));
    g_source_set_callback(clock.get(), giveUp, question.cancellable.get(), nullptr);
    g_source_attach(clock.get(), context.get());

    g_main_context_push_thread_default(context.get());
    g_dbus_connection_new_for_address(
        address,
        GDBusConnectionFlags(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, question.cancellable.get(), busAnswered, &question);
    while (!question.isOver)
        g_main_context_iteration(context.get(), TRUE);
    g_main_context_pop_thread_default(context.get());
    g_source_destroy(clock.get());
}

} // namespace

void askSessionBus() {
    const Owned<char> address(
        g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    if (!address)
        return;
    Question question;
    ask(question, address.get());
    if (!question.bus && g_cancellable_is_cancelled(question.cancellable.get()))
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    if (question.portalChoosesFiles && !qEnvironmentVariableIsSet("QT_QPA_PLATFORMTHEME"))
        qputenv("QT_QPA_PLATFORMTHEME", "xdgdesktopportal");
}
