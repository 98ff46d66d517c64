#pragma once

#include "toolkit/ViewController.h"

#include <QList>

#include <functional>
#include <map>

/** A segue as a scene declares it: forward to a scene, or back to the nearest screen below that
 * has an action. */
struct SegueDescription {
    enum class Kind { Show, Unwind };

    QString identifier;
    Kind kind = Kind::Show;
    QString target; ///< Show: a scene's identifier. Unwind: the action's name.

    /** A segue that a control of its own starts is called after the scene that it leads to. */
    static SegueDescription show(const QString& scene) { return {scene, Kind::Show, scene}; }
    static SegueDescription show(const QString& identifier, const QString& scene) {
        return {identifier, Kind::Show, scene};
    }
    static SegueDescription unwind(const QString& identifier, const QString& action) {
        return {identifier, Kind::Unwind, action};
    }
};

/** How one screen is made and what it leads to. */
struct Scene {
    QString identifier;
    QString title;
    QString view;
    std::function<std::unique_ptr<ViewController>()> make;
    QList<SegueDescription> segues;
    /** Connects the new screen's controls; may be absent. */
    std::function<void(ViewController&)> wire;
};

/** The scenes of the program, and the ways between them. Outlives the controllers it makes. */
class Storyboard {
public:
    void add(const Scene& scene);
    const Scene* scene(const QString& identifier) const;
    const std::map<QString, Scene>& scenes() const { return m_scenes; }

    /** A new, not yet loaded screen; an unknown identifier is a fatal error. */
    std::unique_ptr<ViewController> instantiate(const QString& identifier);

    void perform(const QString& identifier, ViewController& source, QObject* sender);

private:
    std::map<QString, Scene> m_scenes; // controllers point to their scenes
};
