#include "foundation/ClassRuntime.h"

#include <gtest/gtest.h>

TEST(ClassRuntime, KnowsAClassFromItsRegistrationOn) {
    ClassRuntime classes;
    EXPECT_TRUE(classes.allocateClassPair(QStringLiteral("View"), QStringLiteral("TextView")));
    EXPECT_FALSE(classes.getClass(QStringLiteral("TextView")));
    EXPECT_FALSE(classes.allocateClassPair(QStringLiteral("TextView"), QStringLiteral("Editor")))
        << "the superclass is not registered yet";
    classes.registerClassPair(QStringLiteral("TextView"));
    EXPECT_TRUE(classes.getClass(QStringLiteral("TextView")));
    EXPECT_FALSE(classes.allocateClassPair(QStringLiteral("View"), QStringLiteral("TextView")));
    classes.registerClassPair(QStringLiteral("Editor"));
    EXPECT_FALSE(classes.getClass(QStringLiteral("Editor"))) << "never allocated";
}
