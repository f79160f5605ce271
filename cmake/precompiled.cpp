// Something to compile, for the sake of the headers that are compiled before it.
