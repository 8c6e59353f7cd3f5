"use strict";

const assert = require("node:assert/strict");
const fs = require("node:fs");
const path = require("node:path");
const test = require("node:test");
const { loadGrammar, tokenise } = require("./tokenise.js");

const examples = path.join(__dirname, "..", "..", "..", "examples");

/** What each file declares, in order; variables with `=` in front, methods with `()` behind. */
const declarations = {
  "conveyor/belt.slate": "Belt",
  "conveyor/config.slate": "config",
  "conveyor/control.slate": "LightBarrier Control",
  "conveyor/frame.slate": "Frame",
  "conveyor/line.slate": "=ParcelPitch Infeed Incline InfeedLine",
  "conveyor/sections/belt_conveyor.slate": "BeltConveyor InclinedConveyor",
  "conveyor/sizing.slate": "DriveSizing LineBalance",
  "drives/catalogue.slate": "LightDrive HeavyDrive",
  "drives/component.slate": "Component",
  "drives/config.slate": "config",
  "drives/drive.slate": "Drive",
  "drives/gears/gearbox.slate": "=StageEfficiency Stage Gearbox WormGearbox HelicalGearbox",
  "drives/mass_point.slate": "MassPoint",
  "drives/motors/motor.slate": "Motor torqueAt() select() AsynchronousMotor",
  "drives/motors/supply.slate": "Supply EuropeanMains AmericanMains",
  "drives/shafts.slate": "Shaft Drum",
  "drives/shapes.slate": "Cylindrical Tubular Turning energyAt()",
  "quantities/config.slate": "config",
  "quantities/constants.slate": "=Pi =Gravity",
  "quantities/materials/material.slate": "Material",
  "quantities/materials/metals.slate": "Steel StainlessSteel Aluminium",
  "quantities/materials/test_cube.slate": "TestCube",
  "quantities/units.slate": "=Millimetre =Kilowatt =Minute =Hour =Revolution =RevolutionPerMinute",
};

const declaringScopes = {
  "entity.name.type.model": (name) => name,
  "variable.other.global": (name) => `=${name}`,
  "entity.name.function": (name) => `${name}()`,
};

const keywords = /^(is|becomes|fn|static|true|false|operator|const|external|import|as|trait|with|delete)$/;
const keywordScopes = /^(keyword\.(declaration|control)\.|storage\.modifier|constant\.language\.boolean)/;

function findSources(folder, below = "") {
  return fs.readdirSync(path.join(folder, below), { withFileTypes: true }).flatMap((entry) => {
    const name = path.posix.join(below, entry.name);
    return entry.isDirectory() ? findSources(folder, name) : name.endsWith(".slate") ? [name] : [];
  });
}

test("every example is coloured from end to end", async (t) => {
  const grammar = await loadGrammar();
  // Other folders of examples bring sources of their own; those of the bundles are all in the table.
  const found = ["conveyor", "drives", "quantities"].flatMap((bundle) => findSources(examples, bundle));
  assert.deepEqual(found.sort(), Object.keys(declarations).sort());

  for (const [file, declared] of Object.entries(declarations)) {
    await t.test(file, () => {
      const tokens = tokenise(grammar, fs.readFileSync(path.join(examples, file), "utf8"));
      const scopeOf = (token) => token.scopes.at(-1) ?? "";
      assert.deepEqual(tokens.filter((token) => scopeOf(token) === "" || /illegal/.test(scopeOf(token))), []);
      for (const token of tokens.filter(({ text }) => keywords.test(text))) {
        assert.match(scopeOf(token), keywordScopes, `${token.text} on line ${token.line}`);
      }
      const names = tokens.flatMap((token) => declaringScopes[scopeOf(token)]?.(token.text) ?? []);
      assert.equal(names.join(" "), declared);
    });
  }
});
