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
    void operator()(GVariant* value) const { g_variant_unref(value); }
    void operator()(gpointer object) const { g_object_unref(object); }
    void operator()(char* text) const { g_free(text); }
};

template <class Object>
using Owned = std::unique_ptr<Object, Unref>;

struct Question {
    Owned<GCancellable> cancellable{g_cancellable_new()};
    Owned<GDBusConnection> bus;
    bool portalChoosesFiles = false;
    DesktopSettings settings;
    int awaited = 1;
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
    --question.awaited;
}

QVariant plain(GVariant* value) {
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_BOOLEAN))
        return bool(g_variant_get_boolean(value));
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_UINT32))
        return uint(g_variant_get_uint32(value));
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_INT32))
        return int(g_variant_get_int32(value));
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_DOUBLE))
        return g_variant_get_double(value);
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_STRING))
        return QString::fromUtf8(g_variant_get_string(value, nullptr));
    return {};
}

void settingsAnswered(GObject* bus, GAsyncResult* result, gpointer asked) {
    auto& question = *static_cast<Question*>(asked);
    --question.awaited;
    const Owned<GVariant> answer(
        g_dbus_connection_call_finish(reinterpret_cast<GDBusConnection*>(bus), result, nullptr));
    if (!answer)
        return;
    const Owned<GVariant> groups(g_variant_get_child_value(answer.get(), 0));
    for (gsize i = 0; i < g_variant_n_children(groups.get()); ++i) {
        const Owned<GVariant> group(g_variant_get_child_value(groups.get(), i));
        const Owned<GVariant> name(g_variant_get_child_value(group.get(), 0));
        const Owned<GVariant> settings(g_variant_get_child_value(group.get(), 1));
        GVariantIter next;
        g_variant_iter_init(&next, settings.get());
        const gchar* key = nullptr;
        GVariant* value = nullptr;
        while (g_variant_iter_loop(&next, "{&sv}", &key, &value)) {
            question.settings.insert(QString::fromUtf8(g_variant_get_string(name.get(), nullptr)) +
                                         u' ' + QString::fromUtf8(key),
                                     plain(value));
        }
    }
}

GVariant* appearanceQuestion() {
    GVariantBuilder groups;
    g_variant_builder_init(&groups, G_VARIANT_TYPE_STRING_ARRAY);
    for (const QLatin1String group : appearanceGroups)
        g_variant_builder_add(&groups, "s", group.data());
    return g_variant_new("(as)", &groups);
}

// A portal that has no program to choose files with does not have this interface either.
void busAnswered(GObject* /*source*/, GAsyncResult* result, gpointer asked) {
    auto& question = *static_cast<Question*>(asked);
    question.bus.reset(g_dbus_connection_new_for_address_finish(result, nullptr));
    --question.awaited;
    if (!question.bus)
        return;
    const auto call = [&question](const char* interface, const char* method, GVariant* arguments,
                                  const char* answer, GAsyncReadyCallback answered) {
        ++question.awaited;
        g_dbus_connection_call(
            question.bus.get(), "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
            interface, method, arguments, reinterpret_cast<const GVariantType*>(answer),
            G_DBUS_CALL_FLAGS_NONE, -1, question.cancellable.get(), answered, &question);
    };
    call("org.freedesktop.DBus.Properties", "Get",
         g_variant_new("(ss)", "org.freedesktop.portal.FileChooser", "version"), "(v)",
         portalAnswered);
    call("org.freedesktop.portal.Settings", "ReadAll", appearanceQuestion(), "(a{sa{sv}})",
         settingsAnswered);
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
    while (question.awaited > 0)
        g_main_context_iteration(context.get(), TRUE);
    g_main_context_pop_thread_default(context.get());
    g_source_destroy(clock.get());
}

} // namespace

DesktopSettings askSessionBus() {
    const Owned<char> address(
        g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    if (!address)
        return {};
    Question question;
    ask(question, address.get());
    if (!question.bus && g_cancellable_is_cancelled(question.cancellable.get()))
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    if (question.portalChoosesFiles && !qEnvironmentVariableIsSet("QT_QPA_PLATFORMTHEME"))
        qputenv("QT_QPA_PLATFORMTHEME", "xdgdesktopportal");
    return question.settings;
}
