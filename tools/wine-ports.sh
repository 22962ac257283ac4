# SPDX-License-Identifier: MIT
# Simulated units of this machine at COM ports of wine. Read in by scripts that have set `simulator` and WINEPREFIX.
units=()
declare -A paths
lines=$(mktemp -d)
end_units() {
  [ ${#units[@]} -eq 0 ] || kill "${units[@]}" 2>/dev/null
  timeout 60 wineserver -k
  rm -rf "$lines"
}
trap 'end_units; rm -f "${counts:-}"' EXIT

# A unit at a port: its name, then the simulator's options.
unit_at() {
  local name=$1
  shift
  : >"$lines/$name"
  "$simulator" --quiet "$@" >"$lines/$name" &
  units+=($!)
  for _ in $(seq 100); do grep -q '^port ' "$lines/$name" && break; read -rt 0.05 <> <(:) || :; done
  paths[$name]=$(sed -n 's/^port //p' "$lines/$name")
}

# Wine reads at its start what its ports are.
lay_ports() {
  local name
  for name in "${!paths[@]}"; do
    wine reg add 'HKLM\Software\Wine\Ports' /f /v "$name" /t REG_SZ /d "${paths[$name]}" >/dev/null
  done
  timeout 60 wineserver -k
  timeout 60 wineserver -w
}
