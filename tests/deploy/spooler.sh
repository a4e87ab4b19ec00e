#!/usr/bin/env bash
# Prints three patients on the default printer (no output file) through a real CUPS spooler whose
# default queue is a PDF printer (cups-pdf), and checks that one job of three pages arrived as a PDF.
# The daemon is private to this test: its own configuration, spool and socket in a temporary folder,
# no network; it is stopped when the test ends, however it ends. Exits 77 (skipped) when CUPS cannot
# be installed or started here.
# Usage: spooler.sh PRINT_TOOL
set -uo pipefail
tool=$(realpath "$1")

skip() { echo "SKIPPED: $*"; exit 77; }
fail() { echo "FAIL: $*" >&2; exit 1; }

[ -x "$tool" ] || fail "no print tool at $tool"
[ "$(id -u)" -eq 0 ] || skip "installing CUPS and running its PDF backend (cups-pdf) needs root"

packages=(cups-daemon cups-client cups-filters printer-driver-cups-pdf ghostscript poppler-utils)
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing ${missing[*]}"
    export DEBIAN_FRONTEND=noninteractive
    { timeout 120 apt-get update -qq && timeout 400 apt-get install -y -qq --no-install-recommends "${missing[@]}"; } \
        >/dev/null 2>&1 || skip "could not install ${missing[*]} with apt-get"
fi

work=$(mktemp -d /tmp/coagulation-spooler.XXXXXX)
chmod 0755 "$work"
instance=coagulation$$ # cups-pdf reads /etc/cups/cups-pdf-<instance>.conf for the URI cups-pdf:/<instance>
instance_conf=/etc/cups/cups-pdf-$instance.conf
daemon=

cleanup() {
    if [ -n "$daemon" ]; then
        kill -TERM "$daemon" 2>/dev/null
        for _ in $(seq 50); do kill -0 "$daemon" 2>/dev/null || break; sleep 0.1; done
        kill -KILL "$daemon" 2>/dev/null
        wait "$daemon" 2>/dev/null
    fi
    rm -f "$instance_conf"
    rm -rf "$work"
}
trap cleanup EXIT
trap 'exit 1' INT TERM

mkdir -p "$work"/{spool/tmp,cache,state,log,out,home}
socket=$work/cups.sock
cat >"$work/cups-files.conf" <<CONF
ServerRoot $work
RequestRoot $work/spool
TempDir $work/spool/tmp
CacheDir $work/cache
StateDir $work/state
AccessLog $work/log/access_log
ErrorLog $work/log/error_log
PageLog $work/log/page_log
Printcap $work/printcap
SystemGroup root
FileDevice No
CONF
cat >"$work/cupsd.conf" <<CONF
Listen $socket
LogLevel info
Browsing No
PreserveJobFiles Yes
PreserveJobHistory Yes
<Location />
  Order allow,deny
  Allow localhost
</Location>
CONF
cat >"$instance_conf" <<CONF
Out $work/out
AnonDirName $work/out
Log $work/log
Spool $work/spool/cups-pdf
CONF

/usr/sbin/cupsd -f -c "$work/cupsd.conf" -s "$work/cups-files.conf" >"$work/log/cupsd.out" 2>&1 &
daemon=$!
for _ in $(seq 100); do [ -S "$socket" ] && break; kill -0 "$daemon" 2>/dev/null || break; sleep 0.1; done
[ -S "$socket" ] || skip "cupsd did not start: $(tail -n 3 "$work/log/cupsd.out" "$work/log/error_log" 2>/dev/null)"

# Everything below talks to the private daemon only, and sees no user's printer choices.
export CUPS_SERVER=$socket HOME=$work/home
unset PRINTER LPDEST
ppd=/usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd
timeout 20 lpadmin -p CoagulationPDF -E -v "cups-pdf:/$instance" -P "$ppd" 2>/dev/null ||
    skip "could not create the PDF queue"
timeout 20 lpadmin -d CoagulationPDF || skip "could not make the PDF queue the default printer"
[ "$(timeout 10 lpstat -d)" = "system default destination: CoagulationPDF" ] ||
    skip "the PDF queue is not the default printer"

timeout 120 "$tool" demo "$work/lab" --patients 3 >/dev/null || fail "the demo workspace could not be made"
timeout 120 "$tool" patients 1 2 3 -p "$work/lab/profile.ini" || fail "printing to the default printer failed"

# One job, completed, printed by the backend into a PDF (bounded waits: the backend runs Ghostscript).
for _ in $(seq 300); do
    [ -n "$(timeout 10 lpstat -W not-completed -o CoagulationPDF)" ] || break
    sleep 0.2
done
jobs=$(timeout 10 lpstat -W completed -o CoagulationPDF | wc -l)
[ "$jobs" -eq 1 ] || fail "expected one completed job on the queue, found $jobs; $(tail -n 5 "$work/log/error_log")"
for _ in $(seq 100); do compgen -G "$work/out/*.pdf" >/dev/null && break; sleep 0.1; done

spooled=$(ls "$work"/spool/d*-001 2>/dev/null | head -n 1)
[ -n "$spooled" ] || fail "no document in the spool folder"
[ "$(head -c 5 "$spooled")" = "%PDF-" ] || fail "the spooled document is not a PDF"
spooled_pages=$(pdfinfo "$spooled" | sed -n 's/^Pages: *//p')
[ "$spooled_pages" = 3 ] || fail "the spooled document has $spooled_pages pages, not 3"

printed=$(ls "$work"/out/*.pdf 2>/dev/null)
[ "$(echo "$printed" | grep -c .)" -eq 1 ] || fail "expected one PDF from the queue, found: ${printed:-none}; $(tail -n 5 "$work/log/error_log")"
printed_pages=$(pdfinfo "$printed" | sed -n 's/^Pages: *//p')
[ "$printed_pages" = 3 ] || fail "the queue printed $printed_pages pages, not 3"
echo "spooled job: a $spooled_pages-page PDF; printed by the PDF queue: $(basename "$printed"), $printed_pages pages"
