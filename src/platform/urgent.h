#pragma once

// Marks what is told even while a long piece of work keeps all other events for later
// (toolkit/widgets/glance.h): the parent of a notifier of sockets is one.
class Urgent {
public:
    virtual ~Urgent() = default;
};
