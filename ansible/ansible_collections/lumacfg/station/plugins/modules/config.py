#!/usr/bin/python
# -*- coding: utf-8 -*-
# Copyright (C) 2026 the lumacfg developers (see COPYING in the collection).

"""The lumacfg.station.config module: a station's fields, applied with lumacfg-cli."""

from __future__ import absolute_import, division, print_function

__metaclass__ = type

DOCUMENTATION = r"""
---
module: config
short_description: Configure the ICP-MS station of a laboratory data system
description:
  - Sets fields of the station configuration on the managed host through C(lumacfg-cli apply),
    with the same checks, in the same order, as the configuration window's Save.
  - Fields that already hold their value are no change; when none changes, nothing is written
    and the task reports C(ok).
  - A value that a check of Save refuses fails the task with that check's message; nothing of
    the station is written then.
  - The names and values are those that C(lumacfg-cli export) prints for the station.
version_added: "1.0.0"
author:
  - the lumacfg developers
options:
  fields:
    description:
      - The fields to set, by name (ALS_TYPE, _QCMDPATH$, RACK(2)), each with its
        value as C(lumacfg-cli set) takes it.
      - A value is a string; a whole number is taken as its decimal text. Quote other values
        (C("0.50"), C("44 --- 12")).
    type: dict
    required: true
  program_dir:
    description:
      - The data system's program directory of the station (C(LUMACFG_PROGRAM_DIR)).
      - Unset, the C(lumacfg-cli) on the host finds the station as it always does.
    type: path
  registry:
    description:
      - The machine-wide registry store of the station (C(LUMACFG_REGISTRY)).
    type: path
  cli:
    description:
      - The C(lumacfg-cli) program to run, by name on the C(PATH) or by path.
    type: str
    default: lumacfg-cli
notes:
  - Check mode runs C(lumacfg-cli apply --dry-run), which reports what would change and writes
    nothing. Diff mode shows the unified diff of each station file that changes.
  - Runs on the managed host; needs Python 3 and C(lumacfg-cli) there.
attributes:
  check_mode:
    support: full
  diff_mode:
    support: full
"""

EXAMPLES = r"""
- name: Every station offline, with the V-AS autosampler on COM2
  lumacfg.station.config:
    fields:
      ICPMS_ID: 1
      ALS_TYPE: 5
      COM_PORT: 2
      SAMPLE_DEPTH: "40"

- name: A second station on the same host
  lumacfg.station.config:
    program_dir: /srv/stations/b/LUMAEXE
    registry: /srv/stations/b/registry.reg
    fields:
      OPT_CHG_FLW: "0.50"
"""

RETURN = r"""
changed:
  description: Whether a field changed (in check mode, would change).
  returned: always
  type: bool
files:
  description: The station files written (in check mode, that would be written).
  returned: when lumacfg-cli ran
  type: list
  elements: str
  sample: ["/srv/stations/a/LUMAEXE/lumagen.ist"]
message:
  description: What C(lumacfg-cli) said ("unchanged", "changed", "would change", or why it
    refused).
  returned: when lumacfg-cli ran
  type: str
rc:
  description: The exit status of C(lumacfg-cli apply) (1 a check refused a value, 2 a field or
    value it does not take, 3 start-up refused, 4 a file it could not read or write).
  returned: when lumacfg-cli ran
  type: int
"""

import json

from ansible.module_utils.basic import AnsibleModule


def field_text(value):
    """The value of a field as lumacfg-cli set takes it, or None when it cannot be one."""
    if isinstance(value, bool):
        return None
    if isinstance(value, str):
        return value
    if isinstance(value, int):
        return str(value)
    return None


def document(module):
    """The apply document of the task's fields; fails the task on a value that is no text."""
    fields = {}
    for name, value in module.params["fields"].items():
        text = field_text(value)
        if text is None:
            module.fail_json(
                msg="%s takes a string (its value as lumacfg-cli set takes it), not %r"
                % (name, value)
            )
        fields[name] = text
    return json.dumps({"format": 1, "fields": fields})


def environment(module):
    """The environment variables that name the station."""
    names = {"program_dir": "LUMACFG_PROGRAM_DIR", "registry": "LUMACFG_REGISTRY"}
    return dict(
        (variable, module.params[option])
        for option, variable in names.items()
        if module.params[option]
    )


def run_module():
    module = AnsibleModule(
        argument_spec=dict(
            fields=dict(type="dict", required=True),
            program_dir=dict(type="path"),
            registry=dict(type="path"),
            cli=dict(type="str", default="lumacfg-cli"),
        ),
        supports_check_mode=True,
    )
    command = [module.params["cli"], "apply", "--json", "-"]
    if module.check_mode:
        command.insert(2, "--dry-run")
    rc, out, err = module.run_command(
        command,
        data=document(module),
        binary_data=True,
        environ_update=environment(module),
    )
    try:
        result = json.loads(out)
    except ValueError:
        module.fail_json(
            msg="%s gave no result (exit %d): %s" % (module.params["cli"], rc, err.strip()),
            rc=rc,
        )
    outcome = dict(
        changed=bool(result.get("changed")),
        files=result.get("files", []),
        message=result.get("message", ""),
        rc=rc,
    )
    if rc != 0:
        # A start-up refused because another copy runs says nothing of its own (exit 3).
        reason = outcome["message"] or "%s apply ended with exit status %d" % (
            module.params["cli"],
            rc,
        )
        module.fail_json(msg=reason, **outcome)
    if module._diff and outcome["changed"]:
        outcome["diff"] = dict(prepared=result.get("diff", ""))
    module.exit_json(**outcome)


def main():
    run_module()


if __name__ == "__main__":
    main()
