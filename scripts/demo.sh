#!/bin/sh
# Creates the demo workspace and prints the demo reports as PDF files through the print tool.
# Usage: scripts/demo.sh BINARY_FOLDER OUTPUT_FOLDER
set -e
bin=${1:-build/default/bin}
out=${2:-out/demo}
tool="$bin/coagulation-print"
profile="$out/profile.ini"
reports="$out/reports"

# The demo speaks Chinese whatever the machine's locale; --language en makes an English one.
export LANGUAGE=zh_CN
"$tool" demo "$out" --force
# Five samples of one morning; number 13 is a QC sample and prints from the QC sample template.
"$tool" patients 10 11 12 13 14 --profile "$profile" --output "$reports/patient-results.pdf"
# The normal PT and APTT controls of June: each series on its own pages.
"$tool" qc 1 3 --from 2024-06-01 --to 2024-06-28 --profile "$profile" --output "$reports/qc-report.pdf"
"$tool" maintenance --month 2024-06 --profile "$profile" --output "$reports/maintenance-2024-06.pdf"

echo
echo "Demo reports in $(cd "$reports" && pwd):"
echo "  patient-results.pdf       patient result reports of samples 10 to 14 (one page each)"
echo "  qc-report.pdf             QC report of two control series, June 2024"
echo "  maintenance-2024-06.pdf   maintenance record report of June 2024"
echo "The workspace (profile, databases, templates) is $(cd "$out" && pwd)."
