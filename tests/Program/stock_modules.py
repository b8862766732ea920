"""The rule modules that come with the program, and the rules that are on record for them."""

import os

RULE_MODULES = [
    (1, "QoxMillRulesu.dll"),
    (2, "QoxTurnRulesu.dll"),
    (3, "QoxSMRulesu.dll"),
    (4, "QOXIMRulesu.dll"),
    (5, "QOXAssemblyRulesu.dll"),
    (6, "QoxGenericRulesu.dll"),
    (7, "QOXCastingRulesu.dll"),
    (8, "QOXDieCastRulesu.dll"),
    (9, "QoxToleranceRulesu.dll"),
    (12, "QOXTubingRulesu.dll"),
]

RULE_NAMES_DIR = os.path.join(os.path.dirname(os.path.realpath(__file__)), "..", "data", "rule-modules")


def rules_on_record(module):
    """The names of the rules of a module, without its ending."""
    with open(os.path.join(RULE_NAMES_DIR, module + ".txt"), encoding="utf-8") as file:
        lines = file.read().splitlines()
    return [line.split()[0] for line in lines[1:] if not line.startswith(" ")]  # those set in are parameters


def every_module():
    """The names of all modules that come with the program, without their ending."""
    return [os.path.splitext(name)[0] for name in os.listdir(RULE_NAMES_DIR) if name.endswith(".txt")]


def first_modules():
    """The modules that a first start loads: the program reads up to the first gap in the numbers."""
    return [os.path.splitext(module)[0] for place, (number, module) in enumerate(RULE_MODULES, 1) if number == place]


def offered_rules():
    """How many rules the modules that a first start loads offer, by the names that are on record."""
    return sum(len(rules_on_record(module)) for module in first_modules())
