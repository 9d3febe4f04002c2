# Sourced by tests, which bring their fail TEXT.

# until_true COMMAND...: waits for it, longer than any machine needs.
until_true() {
    for _ in $(seq 600); do
        "$@" && return 0
        sleep 0.05
    done
    fail "never came: $*"
}
