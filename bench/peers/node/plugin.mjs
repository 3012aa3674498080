// The same job in Node: a plugin of a deck host that shows one reading of this machine on each key,
// once a second. Started with the arguments that a host gives a plugin.
import { createCanvas, GlobalFonts } from '@napi-rs/canvas';
import si from 'systeminformation';
import WebSocket from 'ws';

const launch = {};
for (let i = 2; i + 1 < process.argv.length; i += 2)
    launch[process.argv[i].slice(1)] = process.argv[i + 1];

const info = JSON.parse(launch.info);
for (const font of info.fonts ?? [])
    GlobalFonts.registerFromPath(font.url, 'Roboto');

const prefix = 'com.quellor.stream.';
const keys = new Map();
const readings = {};

// The package starts other programs to look at graphics cards and drives. A sparing plugin does
// without these readings; one that reads what QtSystemMonitor reads cannot.
const sparing = process.env.PEER_SPARING === '1';

async function refresh() {
    const [load, memory, network, temperature, speed, graphics, drives] = await Promise.all([
        si.currentLoad(), si.mem(), si.networkStats('*'), si.cpuTemperature(), si.cpuCurrentSpeed(),
        sparing ? { controllers: [] } : si.graphics(),
        sparing ? [] : si.fsSize(),
    ]);
    Object.assign(readings, { load, memory, network, temperature, speed, graphics, drives });
}

const megabytes = (bytes) => `${Math.round(bytes / 1048576)}MB`;
const gigabytes = (bytes) => `${(bytes / 1073741824).toFixed(1)}GB`;

function rate(member) {
    const sum = readings.network.reduce((total, adapter) => total + (adapter[member] ?? 0), 0);
    return `${(sum / 1024).toFixed(1)}Kb/s`;
}

const texts = {
    'system.memory': () => `${Math.trunc(100 * readings.memory.active / readings.memory.total)}%`,
    'system.cpu': () => `${Math.trunc(readings.load.currentLoad)}%`,
    'system.cpu.temperature': () => `${readings.temperature.main ?? 0}°`,
    'system.Cpu_Clock': () => `${Math.trunc(readings.speed.avg * 1000)}MHz`,
    'system.Gpu_Temperature': () => `${readings.graphics.controllers[0]?.temperatureGpu ?? 0}°`,
    'system.Gpu_Core_Utility': () => `${readings.graphics.controllers[0]?.utilizationGpu ?? 0}%`,
    'system.NetWork': () => `${rate('tx_sec')}  ${rate('rx_sec')}`,
    'system.NetWork.Upload': () => rate('tx_sec'),
    'system.NetWork.Download': () => rate('rx_sec'),
    'system.Memory_Free_MB': () => megabytes(readings.memory.available),
    'system.Memory_Used_MB': () => megabytes(readings.memory.active),
    'system.Memory_Total_MB': () => megabytes(readings.memory.total),
    'system.Memory_Free_GB': () => gigabytes(readings.memory.available),
    'system.Memory_Used_GB': () => gigabytes(readings.memory.active),
    'system.Memory_Total_GB': () => gigabytes(readings.memory.total),
};

function textOf(key) {
    const text = texts[key.action.slice(prefix.length)];
    const value = text ? text() : '0';
    const { text: title, showTitle } = key.settings.titleParameters;
    return showTitle && title ? `${title}: ${value}` : value;
}

const ruler = createCanvas(1, 1).getContext('2d');

function paint(text, { fontSize, color, opacity }) {
    const font = `bold ${fontSize}px Roboto`;
    ruler.font = font;
    const size = ruler.measureText(text);
    const height = Math.ceil(size.fontBoundingBoxAscent + size.fontBoundingBoxDescent);
    const canvas = createCanvas(Math.max(1, Math.round(size.width)), height);
    const painter = canvas.getContext('2d');
    painter.font = font;
    painter.fillStyle = color;
    painter.globalAlpha = 1 - opacity;
    painter.fillText(text, 0, size.fontBoundingBoxAscent);
    return `data:image/png;base64,${canvas.toBuffer('image/png').toString('base64')}`;
}

const link = new WebSocket(`ws://127.0.0.1:${launch.port}`);

function send(event, context, payload) {
    link.send(JSON.stringify({ event, context, payload }));
}

async function pass() {
    await refresh();
    for (const [context, key] of keys) {
        const text = textOf(key);
        send('setImage', context, { image: paint(text, key.settings.titleParameters), target: 0 });
        send('setTitle', context, { title: text, target: 0 });
    }
}

link.on('open', () => {
    link.send(JSON.stringify({ event: launch.registerEvent, uuid: launch.pluginUUID }));
    let running = false;
    const tick = async () => {
        if (running) return;
        running = true;
        await pass();
        running = false;
    };
    tick();
    setInterval(tick, 1000);
});
link.on('message', (data) => {
    const { event, action, context, payload } = JSON.parse(data);
    if (event === 'willAppear')
        keys.set(context, { action, settings: payload.settings });
});
link.on('close', () => process.exit(0));
