// The studio's security model (docs/studio.md) at the HTTP and WebSocket level, as an attacker
// sees it: no page, only requests and messages with the headers a hostile page or program would
// choose. One server serves the whole file; its last test checks that it still serves after all
// of it and exits cleanly.
import assert from 'node:assert/strict';
import { mkdir, mkdtemp, rm, symlink, writeFile } from 'node:fs/promises';
import os from 'node:os';
import path from 'node:path';
import { after, before, test } from 'node:test';
import {
    connectWebSocket,
    httpRequest,
    startStudio,
    studioCookie,
    temporaryFolder,
} from './support/studio.mjs';

const pageText = '<!doctype html><title>stub page</title>\n';
// Bytes that must never leave the server: a file outside the root, reached through links.
const secretText = 'outside the root: never served\n';
const insideBytes = Buffer.from([0x00, 0xff, 0x10, 0x0a, 0x0d, 0x80, ...Buffer.from('inside\n')]);
const maxMessageBytes = 64 * 1024;

let studio;
let cookie;
let outside;

before(async () => {
    // The page's own files are a stub: these tests are about the server, not the page.
    const web = await temporaryFolder('vexplot-studio-web-');
    await writeFile(path.join(web, 'index.html'), pageText);
    studio = await startStudio({ args: ['--web', web] });
    cookie = await studioCookie(studio);

    outside = await mkdtemp(path.join(os.tmpdir(), 'vexplot-studio-outside-'));
    await writeFile(path.join(outside, 'secret.txt'), secretText);
    const root = studio.cwd;
    await writeFile(path.join(root, 'inside.bin'), insideBytes);
    await mkdir(path.join(root, 'sub'));
    await writeFile(path.join(root, 'sub', 'inner.txt'), 'inner\n');
    await symlink(path.join(outside, 'secret.txt'), path.join(root, 'secret-link.txt'));
    await symlink(outside, path.join(root, 'outside-dir'));
    await symlink('/etc/passwd', path.join(root, 'sub', 'passwd'));
});

after(async () => {
    await rm(outside, { recursive: true, force: true });
});

const withCookie = (headers = {}) => ({ headers: { Cookie: cookie, ...headers } });

test('without the cookie, the page, the files and the WebSocket get 403', async () => {
    for (const target of ['/', '/index.html', '/files/0/inside.bin', '/ws']) {
        const res = await httpRequest(studio, target);
        assert.equal(res.status, 403, `${target} without the cookie`);
    }
    const badCookies = [
        'vexstudio=',
        'vexstudio=0',
        `vexstudio=${studio.token}x`,
        `other=${studio.token}`,
    ];
    for (const bad of badCookies) {
        const res = await httpRequest(studio, '/', { headers: { Cookie: bad } });
        assert.equal(res.status, 403, `cookie ${bad}`);
    }
    await assert.rejects(connectWebSocket(studio), { statusCode: 403 });
});

test('the token buys an HttpOnly, SameSite=Strict cookie and a redirect without it', async () => {
    const res = await httpRequest(studio, `/?token=${studio.token}`);
    assert.ok(res.status >= 300 && res.status < 400, `status ${res.status}`);
    const location = new URL(res.headers.location, studio.origin);
    assert.equal(location.origin, studio.origin);
    assert.equal(location.search, '', 'the redirect drops the token');
    const [setCookie] = res.headers['set-cookie'];
    const attributes = setCookie.split(';').map((a) => a.trim().toLowerCase());
    assert.ok(attributes.includes('httponly'), setCookie);
    assert.ok(attributes.includes('samesite=strict'), setCookie);

    const page = await httpRequest(studio, location.pathname, withCookie());
    assert.equal(page.status, 200);
    assert.equal(page.text(), pageText);
});

test('a wrong token gets 403 and no cookie', async () => {
    const flipped = studio.token.replace(/^./, (c) => (c === '0' ? '1' : '0'));
    const tokens = [
        flipped,
        '',
        studio.token.slice(1),
        studio.token + '0',
        studio.token.toUpperCase() + 'G',
    ];
    for (const token of tokens) {
        const res = await httpRequest(studio, `/?token=${token}`);
        assert.equal(res.status, 403, `token "${token}"`);
        assert.equal(res.headers['set-cookie'], undefined);
    }
});

test('a WebSocket upgrade from another Origin is refused, even with the cookie', async () => {
    const port = studio.port;
    const origins = [
        'http://evil.example',
        `http://evil.example:${port}`,
        `https://127.0.0.1:${port}`,
        `http://127.0.0.1:${port + 1}`,
        `http://127.0.0.1:${port}.evil.example`,
        'null',
    ];
    for (const origin of origins) {
        const upgrade = connectWebSocket(studio, { cookie, headers: { Origin: origin } });
        await assert.rejects(upgrade, { statusCode: 403 }, origin);
    }
    // No Origin at all is no page of the studio's either.
    const noOrigin = connectWebSocket(studio, { cookie, headers: { Origin: undefined } });
    await assert.rejects(noOrigin, { statusCode: 403 });

    const socket = await connectWebSocket(studio, { cookie });
    assert.equal((await socket.next((m) => m.type === 'snapshot')).type, 'snapshot');
    socket.ws.close();
});

test("a Host header that is not the server's gets 403, against DNS rebinding", async () => {
    const port = studio.port;
    const hosts = [
        'evil.example',
        `evil.example:${port}`,
        `127.0.0.1:${port + 1}`,
        '127.0.0.1',
        `127.0.0.1.evil.example:${port}`,
        `localhost.evil.example:${port}`,
        `127.0.0.2:${port}`,
    ];
    for (const host of hosts) {
        const page = await httpRequest(studio, '/', withCookie({ Host: host }));
        assert.equal(page.status, 403, host);
        // Not even the token is exchanged under another name.
        const res = await httpRequest(studio, `/?token=${studio.token}`, {
            headers: { Host: host },
        });
        assert.equal(res.status, 403, `token under ${host}`);
        assert.equal(res.headers['set-cookie'], undefined);
    }
    const ours = [`127.0.0.1:${port}`, `localhost:${port}`, `LOCALHOST:${port}`, `[::1]:${port}`];
    for (const host of ours) {
        const page = await httpRequest(studio, '/', withCookie({ Host: host }));
        assert.equal(page.status, 200, host);
    }
});

test('downloads reach only files inside the root', async () => {
    const refused = [
        '/files/0/..%2F..%2Fetc%2Fpasswd',
        '/files/0/../x',
        '/files/0/../../../../etc/passwd',
        '/files/0/%2e%2e/%2e%2e/etc/passwd',
        '/files/0/sub/..%2F..%2Fetc%2Fpasswd',
        '/files/0//etc/passwd',
        '/files/0/%2Fetc%2Fpasswd',
        `/files/0/${encodeURIComponent(path.join(outside, 'secret.txt'))}`,
        '/files/0/secret-link.txt',
        '/files/0/outside-dir/secret.txt',
        '/files/0/sub/passwd',
        '/files/0/sub',
        '/files/0/',
        '/files/0/nothing-here.txt',
        '/files/1/inside.bin',
        '/files/-1/inside.bin',
        '/files/00000000000000000000/inside.bin',
        '/files/x/inside.bin',
        '/files/inside.bin',
        '/files/0/inside.bin%00.txt',
    ];
    for (const target of refused) {
        const res = await httpRequest(studio, target, withCookie());
        assert.ok([400, 403, 404].includes(res.status), `${target}: ${res.status}`);
        const text = res.text();
        assert.ok(!text.includes('root:') && !text.includes(secretText), `${target} leaked`);
    }
    const inside = await httpRequest(studio, '/files/0/inside.bin', withCookie());
    assert.equal(inside.status, 200);
    assert.deepEqual(inside.body, insideBytes);
    const inner = await httpRequest(studio, '/files/0/sub%2Finner.txt', withCookie());
    assert.equal(inner.status, 200);
    assert.equal(inner.text(), 'inner\n');
});

test('only GET and HEAD are served', async () => {
    for (const method of ['POST', 'PUT', 'DELETE']) {
        const res = await httpRequest(studio, '/', { method, ...withCookie(), body: 'x' });
        assert.equal(res.status, 405, method);
    }
});

test('a WebSocket message over 64 KiB closes the connection', async () => {
    const socket = await connectWebSocket(studio, { cookie });
    await socket.next((m) => m.type === 'snapshot');
    // Just under the cap is a message like any other: read, and refused as no known type.
    socket.send(JSON.stringify({ type: 'padding', text: 'x'.repeat(maxMessageBytes - 100) }));
    assert.equal((await socket.next((m) => m.type === 'error')).type, 'error');
    socket.send(JSON.stringify({ type: 'padding', text: 'x'.repeat(maxMessageBytes) }));
    const { code } = await socket.closed;
    assert.equal(code, 1009, 'closed as "message too big"');
});

test('a text message that is not UTF-8 closes the connection, as WebSocket requires', async () => {
    const socket = await connectWebSocket(studio, { cookie });
    await socket.next((m) => m.type === 'snapshot');
    socket.ws.send(Buffer.from([0x7b, 0x22, 0xff, 0xfe, 0x22, 0x7d]), { binary: false });
    const { code } = await socket.closed;
    assert.equal(code, 1007, 'closed as "invalid frame payload data"');
});

// A drag message as JSON text with one field's raw text replaced (left out when undefined): the
// text may be what JSON.stringify cannot write (1e999, a number of 30 digits).
function dragWith(field, raw) {
    const fields = { seq: '1', mode: '"rotate"', dx: '1', dy: '0', active: 'false', [field]: raw };
    const members = Object.entries(fields).filter(([, v]) => v !== undefined);
    return `{"type":"drag",${members.map(([k, v]) => `"${k}":${v}`).join(',')}}`;
}

// Messages that cannot be read or done: each gets an error reply, on a connection that lives on.
const badMessages = [
    ['malformed JSON', '{"type":"drag",'],
    ['empty text', ''],
    ['not an object', '[1,2,3]'],
    ['null', 'null'],
    ['a bare string', '"drag"'],
    ['no type', '{"seq":1}'],
    ['an unknown type', '{"type":"launchMissiles"}'],
    ['a type that is no string', '{"type":5}'],
    ['a drag with a text dx', dragWith('dx', '"10"')],
    ['a drag with a fractional seq', dragWith('seq', '1.5')],
    ['a drag with a negative seq', dragWith('seq', '-1')],
    ['a drag in an unknown mode', dragWith('mode', '"spin"')],
    ['a drag with active a number', dragWith('active', '1')],
    ['a drag with dx 1e999', dragWith('dx', '1e999')],
    ['a drag with dx 1e300', dragWith('dx', '1e300')],
    ['a drag without dy', dragWith('dy', undefined)],
    ['a seq over 64 bits', dragWith('seq', '123456789012345678901234567890')],
    ['a wheel of 1e300 steps', '{"type":"wheel","seq":1,"delta":1e300}'],
    ['a viewport of text', '{"type":"viewport","width":"800","height":600}'],
    ['a viewport of 1e300 pixels', '{"type":"viewport","width":1e300,"height":600}'],
    ['a viewport of 2^63 pixels', '{"type":"viewport","width":9223372036854775808,"height":600}'],
    ['a frame size of zero', '{"type":"frameSize","width":0,"height":0}'],
    ['a menu id that is an object', '{"type":"menu","id":{"id":"view.fit"}}'],
    ['an unknown menu item', '{"type":"menu","id":"no.such.item"}'],
    ['a gui action on no control', '{"type":"gui","action":"press","id":987654}'],
    ['an unknown gui action', '{"type":"gui","action":"explode","id":1}'],
    ['an answer with no prompt up', '{"type":"answer","id":1,"yes":true}'],
    ['a listing of a root that is not there', '{"type":"list","root":7,"path":""}'],
    ['a listing out of the root', '{"type":"list","root":0,"path":"../.."}'],
    ['a listing of an absolute path', '{"type":"list","root":0,"path":"/etc"}'],
    ['a record switch of text', '{"type":"record","on":"yes"}'],
    ['an ack of text', '{"type":"ack","frame":"1"}'],
    ['deeply nested arrays', '['.repeat(30000) + ']'.repeat(30000)],
    ['deeply nested objects', '{"a":'.repeat(10000) + '1' + '}'.repeat(10000)],
    ['a drag with a deeply nested seq', dragWith('seq', '['.repeat(20000) + ']'.repeat(20000))],
];

test('messages that cannot be read or done get an error reply and change nothing', async () => {
    const socket = await connectWebSocket(studio, { cookie });
    const snapshot = await socket.next((m) => m.type === 'snapshot');
    let seen = socket.messages.length;
    for (const [what, text] of badMessages) {
        socket.send(text);
        const reply = await socket.next((m) => m.type === 'error', 10_000, seen).catch((error) => {
            throw new Error(`${what}: ${error.message}`);
        });
        assert.equal(typeof reply.message, 'string', what);
        seen = socket.messages.indexOf(reply) + 1;
    }
    // A picture, too, is no message the page sends.
    socket.ws.send(Buffer.alloc(64), { binary: true });
    await socket.next((m) => m.type === 'error', 10_000, seen);
    assert.equal(socket.ws.readyState, socket.ws.OPEN, 'the connection lives on');

    // Nothing changed: a page connecting now sees the view the first one saw.
    const later = await connectWebSocket(studio, { cookie });
    const now = await later.next((m) => m.type === 'snapshot');
    assert.deepEqual(now.state.view, snapshot.state.view);
    assert.deepEqual(now.state.frameSize, snapshot.state.frameSize);
    assert.equal(now.state.recording, snapshot.state.recording);
    socket.ws.close();
    later.ws.close();
});

test('the largest moves a message may ask for keep the view finite', async () => {
    const socket = await connectWebSocket(studio, { cookie });
    await socket.next((m) => m.type === 'snapshot');
    let seq = 1;
    for (const mode of ['rotate', 'pan', 'zoom']) {
        for (const d of [99_999, -99_999, 1e-300, 5e-324]) {
            socket.send({ type: 'drag', seq: seq++, mode, dx: d, dy: -d, active: true });
        }
        socket.send({ type: 'drag', seq: seq++, mode, dx: 0, dy: 0, active: false });
    }
    for (const delta of [99.9, -99.9, 99.9, 99.9, -99.9, -99.9, -99.9])
        socket.send({ type: 'wheel', seq: seq++, delta });
    socket.send({ type: 'viewport', width: 1, height: 1 });
    socket.send({ type: 'ack', frame: 4294967295 });
    // Replies come in order: once this one is back, the moves above are done.
    socket.send({ type: 'no such type' });
    await socket.next((m) => m.type === 'error');

    const later = await connectWebSocket(studio, { cookie });
    const { state } = await later.next((m) => m.type === 'snapshot');
    // JSON has no infinity or NaN: a view gone wrong shows as null.
    for (const key of ['psi', 'theta', 'alpha', 'width'])
        assert.ok(Number.isFinite(state.view[key]), `view.${key} = ${state.view[key]}`);
    assert.ok(state.view.width > 0, `view width ${state.view.width}`);
    for (const x of state.view.position)
        assert.ok(Number.isFinite(x), `view position ${state.view.position}`);
    socket.send({ type: 'fit' });
    socket.ws.close();
    later.ws.close();
});

test('after all of it the server still serves, and exits cleanly', async () => {
    assert.equal(studio.child.exitCode, null, 'the server is still running');
    const freshCookie = await studioCookie(studio);
    const page = await httpRequest(studio, '/', { headers: { Cookie: freshCookie } });
    assert.equal(page.status, 200);
    const socket = await connectWebSocket(studio, { cookie: freshCookie });
    await socket.next((m) => m.type === 'snapshot');
    // Pictures flow once the page says how large its view is.
    socket.send({ type: 'viewport', width: 400, height: 300 });
    const picture = await socket.next((m) => m.type === 'picture');
    assert.deepEqual([...picture.picture.subarray(0, 2)], [0xff, 0xd8], 'a JPEG file');
    assert.ok(picture.width <= 400 && picture.height <= 300, `${picture.width}x${picture.height}`);
    socket.ws.close();
    await studio.stop();
});
