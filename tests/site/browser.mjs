// Drives headless browsers without any package: Chromium through a pipe, Firefox through a socket.
import {spawn, spawnSync} from "node:child_process";
import {mkdtempSync, readFileSync, rmSync, writeFileSync} from "node:fs";
import {connect} from "node:net";
import {tmpdir} from "node:os";
import {join} from "node:path";
import {setTimeout as delay} from "node:timers/promises";

export const isInstalled = program => spawnSync("sh", ["-c", `command -v ${program}`]).status === 0;

// What the function returns as soon as that is true; at the latest after half a minute, what it returned last.
export async function eventually(check) {
  let value;
  for (let left = 600; left-- && !(value = await check());)
    await delay(50);
  return value;
}

const profile = () => mkdtempSync(join(tmpdir(), "browser-"));

// Ends what was started, and its own children, and removes its profile.
async function end(child, directory) {
  const ended = new Promise(done => child.on("exit", done));
  process.kill(-child.pid, "SIGKILL");
  await ended;
  rmSync(directory, {recursive: true, force: true, maxRetries: 10, retryDelay: 100});
}

const keyCodes = {ArrowDown: 40, ArrowUp: 38, Enter: 13, Escape: 27, Tab: 9};

export async function chromium() {
  const directory = profile();
  const child = spawn("chromium", ["--headless=new", "--no-sandbox", "--disable-gpu", "--remote-debugging-pipe",
    "--no-first-run", `--user-data-dir=${directory}`, "about:blank"],
    {detached: true, stdio: ["ignore", "ignore", "ignore", "pipe", "pipe"]});
  const waiting = new Map(), events = new Map();
  let text = "", last = 0;
  child.stdio[4].setEncoding("utf8").on("data", data => {
    const messages = (text += data).split("\0");
    text = messages.pop();
    for (const message of messages.map(part => JSON.parse(part))) {
      waiting.get(message.id)?.(message);
      events.get(message.method)?.(message);
    }
  });
  let sessionId;
  const send = (method, params = {}) => new Promise((done, failed) => {
    const id = ++last;
    waiting.set(id, message => message.error ? failed(new Error(`${method}: ${message.error.message}`)) : done(message.result));
    child.stdio[3].write(JSON.stringify({id, method, params, sessionId}) + "\0");
  });
  const {targetInfos} = await send("Target.getTargets");
  const {targetId} = targetInfos.find(({type}) => type === "page");
  ({sessionId} = await send("Target.attachToTarget", {targetId, flatten: true}));
  await send("Page.enable");
  await send("Page.setLifecycleEventsEnabled", {enabled: true});
  // The documents in the order in which they began, and those that are loaded. A page that a key opened may still be
  // loading when the next one is asked for, and a page may replace itself before it is loaded.
  const begun = [], loaded = new Set();
  events.set("Page.lifecycleEvent", ({params: {name, loaderId}}) => {
    if (name === "init")
      begun.push(loaderId);
    if (name === "load")
      loaded.add(loaderId);
  });
  const isLoaded = loaderId => begun.includes(loaderId) &&
    begun.slice(begun.indexOf(loaderId)).some(id => loaded.has(id));
  return {
    name: "Chromium",
    call: send, // of a method of the DevTools protocol
    // Sets the width of the window, and what the reader prefers: {theme: "dark", media: "print", script: false}.
    async setUp(width, {theme = "light", media = "screen", script = true, height = 900} = {}) {
      await send("Emulation.setDeviceMetricsOverride", {width, height, deviceScaleFactor: 1, mobile: false});
      await send("Emulation.setEmulatedMedia", {media, features: [{name: "prefers-color-scheme", value: theme}]});
      await send("Emulation.setScriptExecutionDisabled", {value: !script});
    },
    async goto(url) {
      // A page that reloads itself can cancel the navigation, so it is asked for again.
      for (let isThere = false; !isThere;) {
        const {loaderId} = await send("Page.navigate", {url});
        for (let left = 500; left-- && !(isThere = !loaderId || isLoaded(loaderId));)
          await delay(10);
      }
    },
    async evaluate(expression) {
      const {result, exceptionDetails} = await send("Runtime.evaluate",
        {expression: `(async () => (${expression}))()`, awaitPromise: true, returnByValue: true});
      if (exceptionDetails)
        throw new Error(exceptionDetails.exception?.description ?? exceptionDetails.text);
      return result.value;
    },
    async type(text) {
      for (const key of text)
        await send("Input.dispatchKeyEvent", {type: "keyDown", key, text: key}).then(() =>
          send("Input.dispatchKeyEvent", {type: "keyUp", key}));
    },
    async press(key, control = false) {
      const event = {key, modifiers: control ? 2 : 0, windowsVirtualKeyCode: keyCodes[key] ?? key.toUpperCase().charCodeAt(0),
        ...key === "Enter" && {text: "\r"}};
      await send("Input.dispatchKeyEvent", {type: "keyDown", ...event});
      await send("Input.dispatchKeyEvent", {type: "keyUp", ...event, text: undefined});
    },
    close: () => end(child, directory),
  };
}

const keyUnits = {ArrowDown: "\ue015", ArrowUp: "\ue013", Enter: "\ue007", Escape: "\ue00c"};

// The number of the port that Firefox wrote into its profile.
async function portOf(directory) {
  for (let left = 600; left--; await delay(100)) {
    try {
      return Number(readFileSync(join(directory, "MarionetteActivePort"), "utf8"));
    } catch {
      continue;
    }
  }
  throw new Error("Firefox did not start");
}

export async function firefox() {
  const directory = profile();
  writeFileSync(join(directory, "user.js"), 'user_pref("marionette.port", 0);\nuser_pref("datareporting.policy.dataSubmissionEnabled", false);\n');
  const child = spawn("firefox-esr", ["--headless", "--no-remote", "--marionette", "--profile", directory],
    {detached: true, stdio: "ignore", env: {...process.env, HOME: directory}});
  const socket = connect(await portOf(directory), "127.0.0.1");
  const waiting = new Map();
  let bytes = Buffer.alloc(0), last = 0;
  // Each message has its length before it: "15:[1,1,null,{}]".
  socket.on("data", data => {
    bytes = Buffer.concat([bytes, data]);
    for (let colon = bytes.indexOf(":"); colon > 0; colon = bytes.indexOf(":")) {
      const next = colon + 1 + Number(bytes.subarray(0, colon));
      if (bytes.length < next)
        return;
      const [, id, error, result] = JSON.parse(bytes.subarray(colon + 1, next).toString()).length === 4 ?
        JSON.parse(bytes.subarray(colon + 1, next).toString()) : [];
      bytes = bytes.subarray(next);
      waiting.get(id)?.(error, result);
    }
  });
  const send = (command, parameters = {}) => new Promise((done, failed) => {
    const id = ++last;
    waiting.set(id, (error, result) => error ? failed(new Error(`${command}: ${error.message}`)) : done(result));
    const message = JSON.stringify([0, id, command, parameters]);
    socket.write(`${Buffer.byteLength(message)}:${message}`);
  });
  await send("WebDriver:NewSession", {capabilities: {alwaysMatch: {pageLoadStrategy: "normal"}}});
  const keys = actions => send("WebDriver:PerformActions", {actions: [{type: "key", id: "keys", actions}]});
  const stroke = value => [{type: "keyDown", value}, {type: "keyUp", value}];
  return {
    name: "Firefox",
    goto: url => send("WebDriver:Navigate", {url}),
    async evaluate(expression) {
      const {value} = await send("WebDriver:ExecuteAsyncScript", {args: [], sandbox: null, script:
        `const done = arguments[0]; (async () => (${expression}))().then(value => done({value}), error => done({error: String(error)}))`});
      if (value.error)
        throw new Error(value.error);
      return value.value;
    },
    type: text => keys([...text].flatMap(stroke)),
    press(key, control = false) {
      const strokes = stroke(keyUnits[key] ?? key);
      return keys(control ? [{type: "keyDown", value: "\ue009"}, ...strokes, {type: "keyUp", value: "\ue009"}] : strokes);
    },
    close() {
      socket.destroy();
      return end(child, directory);
    },
  };
}
