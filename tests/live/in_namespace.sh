#!/bin/sh
# Runs a program in a network namespace and a mount namespace of its own, which go away with it.
# Where there is no right to make them, the program runs all the same and is told so, that its scenes
# can say why they skip.
if unshare --net --mount true 2>/dev/null; then
  VORNIK_NAMESPACE=own exec unshare --net --mount "$@"
elif unshare --map-root-user --net --mount true 2>/dev/null; then
  VORNIK_NAMESPACE=own exec unshare --map-root-user --net --mount "$@"
fi
VORNIK_NAMESPACE="no right to create a network namespace" exec "$@"
