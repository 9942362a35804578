# Checks over the sources and the built module.
