#!/bin/sh
# Runs a program in a network namespace of its own, which goes away with it. Where there is no right
# to make one, the program runs all the same and is told so, that its scenes can say why they skip.
if unshare --net true 2>/dev/null; then
  VORNIK_NAMESPACE=own exec unshare --net "$@"
elif unshare --map-root-user --net true 2>/dev/null; then
  VORNIK_NAMESPACE=own exec unshare --map-root-user --net "$@"
fi
VORNIK_NAMESPACE="no right to create a network namespace" exec "$@"
