// Lets a screen reader read the page that a view shows.
#pragma once

// Serves every PageView that is made from then on; it may be called any number of times.
void makePagesAccessible();
