# The cache folder, and the names of what is in it.

# Without a login's HOME (a service, a bare container) the password database is better than an empty variable.
: "${HOME:=$(getent passwd "$(id -u)" | cut -d: -f6)}"
export HOME

qelRoot=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
qelCache=${QEL_CACHE_DIR:-${XDG_CACHE_HOME:-$HOME/.cache}/QelDisplay64t}
qelLogs=$qelCache/logs

# shellcheck source=../cache-keys
. "$qelRoot/scripts/cache-keys"

qtHome=$qelCache/$QEL_QT_KEY
microsoftHome=$qelCache/$QEL_MICROSOFT_KEY
winePrefixHome=$qelCache/$QEL_WINE_KEY
