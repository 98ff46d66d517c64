#pragma once

/**
 * Has assistive technology see the items of the window as a person does. What Qt Quick tells of
 * them itself, up to its version 6.7, leaves out that a control is disabled, lists the rows of a
 * list in the order in which they were made, and works controls that cannot be worked.
 */
void describeItemsToAssistiveTechnology();
